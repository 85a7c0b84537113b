// SPDX-License-Identifier: MIT
#include "CompletionSources.h"

#include "Explanations.h"
#include "HostFiles.h"
#include "KeptFiles.h"
#include "LanguageChoice.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "Rules.h"
#include "Session.h"
#include "TextForm.h"

#include <CLI/CLI.hpp>

namespace
{

std::string Line(const std::string &candidate, const std::string &description)
{
    return candidate + (description.empty() ? "" : "\t" + description) + '\n';
}

std::string ScreenSizes(Session &session, const CommandLineWalk &, const CLI::Option &)
{
    std::string lines;
    session.tables.LoadOnce(session.env);
    const CResoTable &sizes = session.tables.resolutions;
    for (int i = 0; i < sizes.Count(); ++i)
        lines += Line(std::to_string(sizes.At(i).width) + 'x' + std::to_string(sizes.At(i).height), {});
    return lines;
}

/// Returns the absolute path of the project on the line; empty if there is none yet.
QString ProjectOf(const CommandLineWalk &walk)
{
    const auto project = walk.Values().find("PROJECT");
    return project == walk.Values().end() ? QString() : AbsolutePath(project->second);
}

std::string KeptEntries(Session &, const CommandLineWalk &walk, const CLI::Option &)
{
    std::string lines;
    if (const QString project = ProjectOf(walk); !project.isEmpty()) {
        for (const KeptFiles::Entry &entry : KeptFiles(project).Entries())
            lines += Line(std::to_string(entry.number), entry.time.toString(Qt::ISODate).toStdString());
    }
    return lines;
}

/// Returns the first lines of the project's string file, each with its fields; all by default. The project isn't
/// opened, since that would finish a save that was interrupted.
std::vector<QStringList> StringFileLines(Session &session, const CommandLineWalk &walk, size_t most = SIZE_MAX)
{
    std::vector<QStringList> lines;
    Environment env(session.env);
    const QString project = ProjectOf(walk);
    if (project.isEmpty() || !env.UseProjectSettings(DirectoryOf(project)))
        return lines;
    const ProjectPaths paths(project, env);
    QByteArray bytes;
    if (ReadFile(paths.Absolute(paths.StringPath()), bytes) != 0)
        return lines;
    const QString text = QString::fromUtf8(ReadableText(bytes));
    qsizetype from = 0;
    for (qsizetype end; lines.size() < most && (end = text.indexOf(u'\n', from)) >= 0; from = end + 1)
        lines.push_back(text.sliced(from, end - from).split(u'\t'));
    return lines;
}

constexpr size_t HEADER = 1;        // the line of a string file with the languages
constexpr qsizetype FIRST_TEXT = 3; // the column of its first language

std::vector<KnownLanguage> LanguagesOfProject(Session &session, const CommandLineWalk &walk)
{
    std::vector<KnownLanguage> languages;
    const std::vector<KnownLanguage> known = KnownLanguages(session.env);
    const std::vector<QStringList> lines = StringFileLines(session, walk, HEADER + 1);
    for (qsizetype i = FIRST_TEXT; lines.size() > HEADER && i < lines[HEADER].size(); ++i) {
        QString name = lines[HEADER][i];
        const int number = ParseLanguageHeader(session.env, name);
        const KnownLanguage *const same = FindLanguage(known, QString::number(number));
        languages.push_back({name, number, same ? same->code : QString()});
    }
    return languages;
}

std::string StringIds(Session &session, const CommandLineWalk &walk, const CLI::Option &option)
{
    std::string candidates;
    const std::vector<QStringList> lines = StringFileLines(session, walk);
    // The value of an option is a new ID. The last line is "##number".
    for (size_t i = HEADER + 1; option.get_positional() && i + 1 < lines.size(); ++i)
        candidates += Line(lines[i].front().toStdString(), lines[i].value(FIRST_TEXT).toStdString());
    return candidates;
}

std::string RuleIds(Session &, const CommandLineWalk &, const CLI::Option &)
{
    std::string lines;
    for (const Rule &rule : AllRules())
        lines += Line(rule.id, rule.summary);
    return lines;
}

std::string Codes(Session &, const CommandLineWalk &, const CLI::Option &)
{
    std::string lines;
    for (const Explanation &one : AllExplanations())
        lines += Line(one.code.toStdString(), one.when.toStdString());
    return lines;
}

/// Lists the languages of the project on the line. An argument names new languages: those that the project lacks.
std::string LanguageNames(Session &session, const CommandLineWalk &walk, const CLI::Option &option)
{
    const std::vector<KnownLanguage> own = LanguagesOfProject(session, walk);
    const bool isNew = option.get_positional();
    std::string lines;
    for (const KnownLanguage &language : isNew || own.empty() ? KnownLanguages(session.env) : own) {
        if (!isNew || !FindLanguage(own, QString::number(language.number)))
            lines += Line(language.name.toStdString(), language.code.toStdString());
    }
    if (walk.Command().get_name() == "export" && option.check_lname("language"))
        lines += Line("none", "a template without translations");
    return lines;
}

/// The kinds of values whose candidates depend on the settings or the project.
constexpr struct
{
    std::string_view kind;
    std::string (*list)(Session &session, const CommandLineWalk &walk, const CLI::Option &option);
} SOURCES[] = {
    {"resolution", ScreenSizes}, {"kept-entry", KeptEntries}, {"rule", RuleIds}, {"code", Codes},
    {"language", LanguageNames}, {"id", StringIds},
};

} // namespace

std::string CandidatesOf(std::string_view kind, const CommandLineWalk &walk, const CLI::Option &option)
{
    std::string lines;
    for (const auto &source : SOURCES) {
        if (kind != source.kind)
            continue;
        const auto settings = walk.Values().find("settings");
        Session session(QString(), AbsolutePath(settings == walk.Values().end() ? std::string() : settings->second));
        lines += source.list(session, walk, option);
    }
    return lines;
}
