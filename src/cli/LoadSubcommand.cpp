// SPDX-License-Identifier: MIT
#include "OpeningReport.h"
#include "ProjectSave.h"
#include "RemoteSubcommand.h"
#include "Subcommands.h"

namespace
{

class LoadSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand = app.add_subcommand("load", "Open a project and report its errors");
        AddProject(*subcommand, project);
        CLI::Option *remoteOption = subcommand->add_flag("--remote", remote, REMOTE_HELP);
        subcommand->add_flag("--strict", strict, STRICT_HELP)->excludes(remoteOption);
        return subcommand;
    }

    int Run(Session &session) override
    {
        const CommandRecord record{AbsolutePath(project)};
        if (remote)
            return RunRemotely(session, IDE_COMMAND_LOAD, record);
        if (strict && HasInterruptedSave(session.env, record.projectPath))
            return EXIT_FAILED;
        session.handler.Load(record);
        auto *const document = static_cast<CResDoc *>(session.documents.FindDocument(record.projectPath));
        return TellOfOpening(session, record.projectPath, document, strict) ? session.LastStatus() : int(EXIT_FAILED);
    }

private:
    std::string project;
    bool remote = false;
    bool strict = false;
};

} // namespace

std::unique_ptr<ISubcommand> MakeLoadSubcommand()
{
    return std::make_unique<LoadSubcommand>();
}
