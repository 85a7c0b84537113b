// SPDX-License-Identifier: MIT
#include "RunGit.h"
#include "Session.h"
#include "Subcommands.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <cstring>
#include <map>

using namespace Qt::StringLiterals;

namespace
{

/// A setting of git. Its value is the name of this program and these words.
struct GitSetting
{
    const char *key;
    const char *words;
    bool isCommand;
};

/// git merges the ancestors of branches that were merged in both directions before it merges the branches. That base
/// can't have conflict markers, so it has a driver of its own.
constexpr GitSetting SETTINGS[] = {
    {"diff.morvanite.textconv", "strings cat", true},
    {"merge.morvanite.name", "Morvanite: rows by ID, texts by language", false},
    {"merge.morvanite.driver", "merge %O %A %B --path %P", true},
    {"merge.morvanite.recursive", "morvanite-base", false},
    {"merge.morvanite-base.name", "Morvanite: bases of merges", false},
    {"merge.morvanite-base.driver", "merge %O %A %B --path %P --conflicts base", true},
};

constexpr char PROGRAM[] = "morvanite-cli";

/// Returns how git starts this program: by its name, or by its path if PATH doesn't lead to it.
std::string CommandFor(const GitSetting &setting)
{
    if (!setting.isCommand)
        return setting.words;
    QString program = QString::fromLatin1(PROGRAM);
    if (QStandardPaths::findExecutable(program).isEmpty()) {
        program = QFileInfo(u"/proc/self/exe"_s).symLinkTarget().replace(u'\'', u"'\\''"_s);
        if (std::strchr(setting.words, '%'))
            program.replace(u'%', u"%%"_s); // begins a placeholder of git
        program = u'\'' + program + u'\'';
    }
    return program.toStdString() + ' ' + setting.words;
}

using Attributes = std::map<QByteArray, QByteArray>;

/// Returns what the attributes of a string file lack; empty if they are one of the two forms of docs/git.md.
QString StringFileFault(Attributes &of)
{
    if (of["merge"] != "morvanite")
        return u"merge=morvanite is missing"_s;
    if (of["working-tree-encoding"] == "unspecified") {
        if (of["text"] != "unset")
            return u"-text is missing"_s;
        return of["diff"] == "morvanite" ? QString() : u"diff=morvanite is missing"_s;
    }
    if (of["working-tree-encoding"] != "UTF-16LE-BOM")
        return u"working-tree-encoding must be UTF-16LE-BOM"_s;
    if (of["text"] != "set")
        return u"text is missing"_s;
    return of["eol"] == "crlf" ? QString() : u"eol=crlf is missing"_s;
}

QString ListFault(Attributes &of)
{
    if (of["merge"] != "morvanite")
        return u"merge=morvanite is missing"_s;
    return of["text"] == "unset" ? QString() : u"-text is missing"_s;
}

class GitSubcommand : public Subcommand<GitArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        if (isInstall)
            return Install(session);
        const bool hasSettings = CheckSettings(session);
        const bool hasAttributes = CheckAttributes(session);
        return hasSettings && hasAttributes ? EXIT_FINE : EXIT_FAILED;
    }

private:
    int Install(Session &session)
    {
        for (const GitSetting &setting : SETTINGS) {
            const std::string value = CommandFor(setting);
            if (!HasEnded(RunGit({"config", isGlobal ? "--global" : "--local", "--replace-all", setting.key, value}))) {
                if (!isGlobal)
                    Complain(u"run the command in a repository, or with --global"_s);
                return EXIT_FAILED;
            }
            session.report.Write(QString::fromStdString(std::string(setting.key) + " = " + value + '\n'));
        }
        return EXIT_FINE;
    }

    static bool HasEnded(const GitEnd &end)
    {
        if (end.startError != 0)
            Complain(u"can't start git: %1"_s.arg(QString::fromLocal8Bit(strerror(end.startError))));
        return end.status == 0;
    }

    static bool CheckSettings(Session &session)
    {
        bool isComplete = true;
        for (const GitSetting &setting : SETTINGS) {
            const GitEnd end = RunGit({"config", "--get", setting.key});
            if (end.startError != 0)
                return HasEnded(end);
            const QByteArray value = end.output.trimmed();
            const bool isThere = end.status == 0 && value.endsWith(setting.words);
            if (!isThere)
                session.report.Print(
                    u"missing\t%1\trun \"morvanite-cli git install\"\n"_s.arg(QLatin1String(setting.key)));
            const bool isFound = !setting.isCommand || !value.startsWith(PROGRAM) ||
                                 !QStandardPaths::findExecutable(QString::fromLatin1(PROGRAM)).isEmpty();
            if (isThere && !isFound)
                session.report.Print(
                    u"missing\t%1\tPATH doesn't lead to morvanite-cli\n"_s.arg(QLatin1String(setting.key)));
            isComplete = isComplete && isThere && isFound;
        }
        if (isComplete)
            session.report.Write(u"fine\tthe settings of git\n"_s);
        return isComplete;
    }

    static bool CheckAttributes(Session &session)
    {
        const GitEnd list = RunGit({"ls-files", "-z", "--cached", "--others", "--exclude-standard", "--",
                                    ":(top,glob)**/ref_list_*.txt", ":(top,glob)**/*.res.xml"});
        if (!HasEnded(list))
            return false;
        std::vector<std::string> arguments{"check-attr", "-z",    "text", "eol", "working-tree-encoding",
                                           "diff",       "merge", "--"};
        for (const QByteArray &file : list.output.split('\0')) {
            if (!file.isEmpty())
                arguments.push_back(file.toStdString());
        }
        const GitEnd end = RunGit(arguments);
        if (!HasEnded(end))
            return false;
        std::map<QByteArray, Attributes> files;
        const QByteArrayList fields = end.output.split('\0'); // three for each attribute
        for (qsizetype i = 0; i + 2 < fields.size(); i += 3)
            files[fields[i]][fields[i + 1]] = fields[i + 2];
        bool isComplete = true;
        for (auto &[file, attributes] : files) {
            const QString fault = file.endsWith(".xml") ? ListFault(attributes) : StringFileFault(attributes);
            if (fault.isEmpty())
                session.report.Write(u"fine\t%1\n"_s.arg(QString::fromUtf8(file)));
            else
                session.report.Print(u"missing\t%1\t%2 in .gitattributes\n"_s.arg(QString::fromUtf8(file), fault));
            isComplete = isComplete && fault.isEmpty();
        }
        return isComplete;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(GitArguments &&arguments)
{
    return std::make_unique<GitSubcommand>(arguments);
}
