// SPDX-License-Identifier: MIT
#include "Session.h"
#include "Subcommands.h"

namespace
{

class ResolutionsSubcommand : public Subcommand<ResolutionsArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        session.tables.LoadOnce(session.env);
        const CResoTable &sizes = session.tables.resolutions;
        for (int i = 0; i < sizes.Count(); ++i)
            session.report.Print(QStringLiteral("%1x%2\n").arg(sizes.At(i).width).arg(sizes.At(i).height));
        return EXIT_FINE;
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(ResolutionsArguments &&arguments)
{
    return std::make_unique<ResolutionsSubcommand>(arguments);
}
