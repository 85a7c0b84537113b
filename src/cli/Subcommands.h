// SPDX-License-Identifier: MIT
#pragma once

#include "AllArguments.h"

#include <memory>

class Session;

/// A subcommand of morvanite-cli. Adds itself and its options to the command line, and runs.
class ISubcommand
{
public:
    virtual ~ISubcommand() = default;
    /// Adds the subcommand and, if the words name it, its options, which are bound to this object.
    virtual CLI::App *Add(CLI::App &app, const CommandWords &words) = 0;
    /// Runs with the options of the command line. Returns the exit status.
    virtual int Run(Session &session) = 0;
};

/// A subcommand whose options are the members of `Arguments`, which adds them to the command line.
template <typename Arguments> class Subcommand : public ISubcommand, protected Arguments
{
public:
    CLI::App *Add(CLI::App &app, const CommandWords &words) final { return Arguments::Add(app, words); }
};

/// Makes the subcommand that has these arguments. Each has a specialization.
template <typename Arguments> std::unique_ptr<ISubcommand> MakeSubcommand();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<InitArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<AddArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<LoadArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<SaveArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<HeadersArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<PackArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<CheckArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<ExplainArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<IdsArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<InspectArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsExportArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsImportArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsStatsArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsCodePointsArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsCatArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsListArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsSetArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<StringsAddLanguageArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<MergeArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<GitArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<LayoutsArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<KeptArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<CacheArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<ResolutionsArguments>();
template <> std::unique_ptr<ISubcommand> MakeSubcommand<ServeArguments>();

/// Makes the subcommands that have these arguments, a std::tuple, in the same order.
template <typename AllOfThem, size_t... Index>
[[nodiscard]] std::vector<std::unique_ptr<ISubcommand>> MakeSubcommands(std::index_sequence<Index...> /*places*/)
{
    std::vector<std::unique_ptr<ISubcommand>> made;
    (made.push_back(MakeSubcommand<std::tuple_element_t<Index, AllOfThem>>()), ...);
    return made;
}
template <typename AllOfThem> [[nodiscard]] std::vector<std::unique_ptr<ISubcommand>> MakeSubcommands()
{
    return MakeSubcommands<AllOfThem>(std::make_index_sequence<std::tuple_size_v<AllOfThem>>());
}
