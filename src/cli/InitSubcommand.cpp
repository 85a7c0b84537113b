// SPDX-License-Identifier: MIT
#include "LanguageChoice.h"
#include "ListedSize.h"
#include "NewProject.h"
#include "Paths.h"
#include "ProjectFile.h"
#include "Session.h"
#include "Subcommands.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Returns a text as a word for a shell.
QString ShellWord(const QString &text)
{
    const bool isPlain =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber() || u"/._-+"_s.contains(c); });
    return isPlain && !text.isEmpty() ? text : u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\'';
}

class InitSubcommand : public Subcommand<InitArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        NewProjectChoice choice;
        choice.folder = AbsolutePath(folder);
        choice.name = name.empty() ? FileName(choice.folder) : QString::fromStdString(name);
        choice.git = git == "text" ? GitForm::Text : git == "none" ? GitForm::None : GitForm::Safe;
        choice.hasBuild = hasBuild;
        if (!HasRightWords(session, choice))
            return EXIT_WRONG_USE;
        QString problem;
        std::optional<NewFiles> files = PlanNewProject(session.env, session.tables, choice, problem);
        if (!files) {
            Complain(problem);
            return EXIT_FAILED;
        }
        const QString neighbour = WarnOfNeighbour(PathOfNewProject(choice));
        const QStringList missing = files->Missing();
        const QStringList existing = files->Existing();
        problem = dryRun ? files->Obstacle() : files->Make();
        if (!problem.isEmpty()) {
            Complain(problem + u"; nothing was made"_s);
            return EXIT_FAILED;
        }
        Print(session, choice, missing, existing);
        session.report.Flush();
        if (!neighbour.isEmpty())
            Complain(neighbour);
        return EXIT_FINE;
    }

private:
    [[nodiscard]] bool HasRightWords(Session &session, NewProjectChoice &choice) const
    {
        if (const QString why = WhyNotProjectName(choice.name, choice.hasBuild); !why.isEmpty()) {
            Complain(why + (name.empty() ? u"; choose one with --name"_s : QString()));
            return false;
        }
        session.tables.LoadOnce(session.env);
        for (const std::string &typed : resolutions) {
            const auto size = ParseScreenSize(typed);
            const QString why =
                size ? WhyNotListed(session.tables.resolutions, *size) : u"it isn't a size such as 240x320"_s;
            if (!why.isEmpty()) {
                Complain(u"--resolution %1: %2"_s.arg(QString::fromStdString(typed), why));
                return false;
            }
            if (std::find(choice.resolutions.begin(), choice.resolutions.end(), *size) == choice.resolutions.end())
                choice.resolutions.push_back(*size);
        }
        const std::vector<KnownLanguage> known = KnownLanguages(session.env);
        for (const std::string &typed : languages) {
            const QString text = QString::fromStdString(typed);
            const KnownLanguage *const language = FindLanguage(known, text);
            if (!language) {
                Complain(u"--language %1: %2"_s.arg(text, WhyLanguageUnknown(known, text)));
                return false;
            }
            const auto isSame = [&](const KnownLanguage &other) { return other.number == language->number; };
            if (std::none_of(choice.languages.begin(), choice.languages.end(), isSame))
                choice.languages.push_back(*language);
        }
        return true;
    }

    /// Returns an absolute path as the user would type it.
    [[nodiscard]] QString Typed(const QString &path, const QString &absoluteFolder) const
    {
        QString typed = QString::fromStdString(folder);
        while (typed.size() > 1 && typed.endsWith(u'/'))
            typed.chop(1);
        if (!path.startsWith(absoluteFolder + u'/'))
            return path;
        const QString inside = path.sliced(absoluteFolder.size() + 1);
        return typed == u"." ? inside : typed + u'/' + inside;
    }

    void Print(Session &session, const NewProjectChoice &choice, const QStringList &missing,
               const QStringList &existing) const
    {
        for (const QString &path : missing)
            session.report.Tell((dryRun ? u"would make "_s : u"made "_s) + Typed(path, choice.folder) + u'\n', dryRun);
        for (const QString &path : existing)
            session.report.Tell((dryRun ? u"would keep "_s : u"kept "_s) + Typed(path, choice.folder) +
                                    u", which exists already\n"_s,
                                dryRun);
        if (dryRun)
            return;
        const QString project = ShellWord(Typed(PathOfNewProject(choice), choice.folder));
        const QString source = ShellWord(QString::fromStdString(folder));
        const QString build = ShellWord(Typed(choice.folder + u"/build"_s, choice.folder));
        const ScreenSize &size = choice.resolutions.front();
        QStringList next = {u"morvanite-cli add %1 --copy --resolution %2x%3 PICTURE.png"_s.arg(project)
                                .arg(size.width)
                                .arg(size.height)};
        if (hasBuild)
            next += {u"cmake -S %1 -B %2 --toolchain arm.cmake"_s.arg(source, build), u"cmake --build "_s + build};
        else
            next += {u"morvanite-cli strings set %1 ID_STRING_HELLO --language %2 Hello"_s.arg(
                         project, ShellWord(choice.languages.front().name)),
                     u"morvanite-cli save "_s + project};
        session.report.Write(u"\nNext:\n  "_s + next.join(u"\n  "_s) + u'\n');
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(InitArguments &&arguments)
{
    return std::make_unique<InitSubcommand>(std::move(arguments));
}
