// SPDX-License-Identifier: MIT
#include "Subcommands.h"

#include <CLI/CLI.hpp>

namespace
{

/// The subcommand `strings`, which only has subcommands.
class StringsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app, const CommandWords &words) override
    {
        CLI::App *const subcommand = StringsArguments::AddGroup(app);
        if (!words.Name(*subcommand))
            return subcommand;
        parts = MakeSubcommands<StringsArguments::Parts>();
        for (const auto &part : parts)
            part->Add(*subcommand, words)->callback([this, &part] { chosen = part.get(); });
        return subcommand;
    }

    int Run(Session &session) override { return chosen->Run(session); }

private:
    std::vector<std::unique_ptr<ISubcommand>> parts;
    ISubcommand *chosen = nullptr; // of the parts
};

} // namespace

template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsArguments>()
{
    return std::make_unique<StringsSubcommand>();
}
