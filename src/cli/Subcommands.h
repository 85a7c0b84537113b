// SPDX-License-Identifier: MIT
#pragma once

#include "AllArguments.h"

#include <memory>

class Session;

/// A subcommand of morvanite-cli, with its options and arguments.
class ISubcommand
{
public:
    virtual ~ISubcommand() = default;
    /// Returns the exit status.
    virtual int Run(Session &session) = 0;
};

/// A subcommand whose options and arguments are the members of `Arguments`.
template <typename Arguments> class Subcommand : public ISubcommand, protected Arguments
{
public:
    explicit Subcommand(Arguments arguments) : Arguments(std::move(arguments)) {}
};

/// Makes the subcommand that has these arguments.
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(InitArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(AddArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(LoadArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(SaveArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(HeadersArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(PackArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(CheckArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(ExplainArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(IdsArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(InspectArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsExportArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsImportArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsStatsArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsCodePointsArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsCatArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsListArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsSetArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(StringsAddLanguageArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(MergeArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(GitArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(LayoutsArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(KeptArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(CacheArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(ResolutionsArguments &&arguments);
[[nodiscard]] std::unique_ptr<ISubcommand> MakeSubcommand(ServeArguments &&arguments);

/// Makes the subcommand that the words name.
template <typename... Arguments>
[[nodiscard]] std::unique_ptr<ISubcommand> MakeChosen(CommandChoice<Arguments...> &commands)
{
    std::unique_ptr<ISubcommand> made;
    commands.UseChosen([&made](auto &arguments) { made = MakeSubcommand(std::move(arguments)); });
    return made;
}
