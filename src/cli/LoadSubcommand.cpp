// SPDX-License-Identifier: MIT
#include "OpeningReport.h"
#include "ProjectSave.h"
#include "RemoteSubcommand.h"
#include "Subcommands.h"

namespace
{

class LoadSubcommand : public Subcommand<LoadArguments>
{
public:
    using Subcommand::Subcommand;

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
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(LoadArguments &&arguments)
{
    return std::make_unique<LoadSubcommand>(std::move(arguments));
}
