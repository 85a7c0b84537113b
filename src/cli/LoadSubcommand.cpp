// SPDX-License-Identifier: MIT
#include "OpeningReport.h"
#include "ProjectSave.h"
#include "Subcommands.h"

namespace
{

class LoadSubcommand : public Subcommand<LoadArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(project);
        if (strict && HasInterruptedSave(session.env, path))
            return EXIT_FAILED;
        session.handler.Load(path);
        auto *const document = static_cast<CResDoc *>(session.documents.FindDocument(path));
        return TellOfOpening(session, path, document, strict) ? session.LastStatus() : int(EXIT_FAILED);
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(LoadArguments &&arguments)
{
    return std::make_unique<LoadSubcommand>(std::move(arguments));
}
