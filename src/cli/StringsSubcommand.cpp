// SPDX-License-Identifier: MIT
#include "StringsSubcommands.h"

namespace
{

/// The subcommand `strings`, which only has subcommands.
class StringsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand =
            app.add_subcommand("strings", "List, set, count, export or import the strings of a project");
        subcommand->require_subcommand(1);
        for (const auto make : {MakeStringsExportSubcommand, MakeStringsImportSubcommand, MakeStringsStatsSubcommand,
                                MakeStringsCodePointsSubcommand, MakeStringsCatSubcommand, MakeStringsListSubcommand,
                                MakeStringsSetSubcommand, MakeStringsAddLanguageSubcommand})
            parts.push_back(make());
        for (const auto &part : parts)
            part->Add(*subcommand)->callback([this, &part] { chosen = part.get(); });
        return subcommand;
    }

    int Run(Session &session) override { return chosen->Run(session); }

private:
    std::vector<std::unique_ptr<ISubcommand>> parts;
    ISubcommand *chosen = nullptr; // of the parts
};

} // namespace

std::unique_ptr<ISubcommand> MakeStringsSubcommand()
{
    return std::make_unique<StringsSubcommand>();
}
