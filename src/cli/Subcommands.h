// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

class Session;

/// A subcommand of morvanite-cli. Adds itself and its options to the command line, and runs.
class ISubcommand
{
public:
    virtual ~ISubcommand() = default;
    /// Adds the subcommand and binds its options to this object.
    virtual CLI::App *Add(CLI::App &app) = 0;
    /// Runs with the options of the command line. Returns the exit status.
    virtual int Run(Session &session) = 0;
};

/// Every subcommand, in the order of the help.
[[nodiscard]] std::vector<std::unique_ptr<ISubcommand>> AllSubcommands();

/// The descriptions of options that several subcommands have.
inline constexpr char DEPFILE_HELP[] = "Write the list of files read, for make or ninja";
inline constexpr char JSON_HELP[] = "Print JSON";
inline constexpr char SAVE_DRY_RUN_HELP[] = "Save nothing; show what would change";
inline constexpr char REMOTE_HELP[] = "Let the running window or server run the command";

/// Adds the argument PROJECT to a subcommand.
void AddProject(CLI::App &subcommand, std::string &project);

/// Adds an option whose value is one of `choices`, which has "|" between them.
void AddChoice(CLI::App &subcommand, const char *name, std::string &value, const char *choices, const char *help);

std::unique_ptr<ISubcommand> MakeInitSubcommand();
std::unique_ptr<ISubcommand> MakeAddSubcommand();
std::unique_ptr<ISubcommand> MakeLoadSubcommand();
std::unique_ptr<ISubcommand> MakeSaveSubcommand();
std::unique_ptr<ISubcommand> MakeHeadersSubcommand();
std::unique_ptr<ISubcommand> MakePackSubcommand();
std::unique_ptr<ISubcommand> MakeCheckSubcommand();
std::unique_ptr<ISubcommand> MakeExplainSubcommand();
std::unique_ptr<ISubcommand> MakeIdsSubcommand();
std::unique_ptr<ISubcommand> MakeInspectSubcommand();
std::unique_ptr<ISubcommand> MakeStringsSubcommand();
std::unique_ptr<ISubcommand> MakeMergeSubcommand();
std::unique_ptr<ISubcommand> MakeGitSubcommand();
std::unique_ptr<ISubcommand> MakeLayoutsSubcommand();
std::unique_ptr<ISubcommand> MakeKeptSubcommand();
std::unique_ptr<ISubcommand> MakeCacheSubcommand();
std::unique_ptr<ISubcommand> MakeResolutionsSubcommand();
std::unique_ptr<ISubcommand> MakeServeSubcommand();
std::unique_ptr<ISubcommand> MakeHelpSubcommand();
