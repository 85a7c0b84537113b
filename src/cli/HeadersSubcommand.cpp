// SPDX-License-Identifier: MIT
#include "Depfile.h"
#include "HeaderFolder.h"
#include "HostFiles.h"
#include "OpeningReport.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectFile.h"
#include "ProjectSave.h"
#include "Subcommands.h"

namespace
{

class HeadersSubcommand : public Subcommand<HeadersArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(project);
        if (isList)
            return List(session, path);
        if (folder.empty()) {
            Complain(QStringLiteral("headers needs --output DIR or --list"));
            return EXIT_WRONG_USE;
        }
        const QString output = AbsolutePath(folder); // opening a project changes the current folder
        const QString depfilePath = AbsolutePath(depfile);
        if (HasInterruptedSave(session.env, path))
            return EXIT_FAILED;
        CResDoc *const document = session.OpenQuietly(path);
        if (!TellOfOpening(session, path, document, document != nullptr) || !document)
            return EXIT_FAILED;
        HeaderFolder headers(*document, output);
        const QString problem = headers.Write();
        if (!problem.isEmpty()) {
            Complain(problem);
            return EXIT_FAILED;
        }
        return depfile.empty() ? int(EXIT_FINE) : WriteDependencies(headers, depfilePath);
    }

private:
    /// Doesn't open the project, which may still be incomplete.
    static int List(Session &session, const QString &path)
    {
        Environment env(session.env);
        if (!env.UseProjectSettings(DirectoryOf(path)))
            return EXIT_FAILED;
        const QString why = WhyNotProjectFile(path);
        if (!why.isEmpty() && !PathExists(ProjectPaths(path, env).ConfigPath())) {
            Complain(why);
            return EXIT_FAILED;
        }
        for (const QString &name : HeaderFolder::NamesBySettings(env))
            session.report.Print(name + u'\n');
        return EXIT_FINE;
    }

    [[nodiscard]] int WriteDependencies(const HeaderFolder &headers, const QString &path) const
    {
        if (const QString file = headers.FileThatIs(path); !file.isEmpty()) {
            Complain(QStringLiteral("%1 is not written because it is the same file as %2").arg(path, file));
            return EXIT_FAILED;
        }
        std::vector<QByteArray> inputs;
        for (const QString &file : headers.Inputs())
            inputs.push_back(HostPath(file));
        const QByteArray made =
            depfileTarget.empty() ? headers.MainHeader().toUtf8() : QByteArray::fromStdString(depfileTarget);
        const QString problem = WriteDepfile(path, made, std::move(inputs));
        if (!problem.isEmpty())
            Complain(problem);
        return problem.isEmpty() ? EXIT_FINE : EXIT_FAILED;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(HeadersArguments &&arguments)
{
    return std::make_unique<HeadersSubcommand>(std::move(arguments));
}
