// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace CLI
{
class App;
}

// What the arguments of several commands have in common.

inline constexpr char DEPFILE_HELP[] = "Write the list of files read, for make or ninja";
inline constexpr char JSON_HELP[] = "Print JSON";
inline constexpr char SAVE_DRY_RUN_HELP[] = "Save nothing; show what would change";
inline constexpr char REMOTE_HELP[] = "Let the running window or server run the command";
inline constexpr char STRICT_HELP[] = "Write nothing and exit with 1 if the project isn't complete";

/// Adds the argument PROJECT to a subcommand.
void AddProject(CLI::App &subcommand, std::string &project);

/// Adds the flag --quiet to a subcommand with a report.
void AddQuiet(CLI::App &subcommand, bool &isQuiet);

/// Adds an option whose value is one of `choices`, which has "|" between them.
void AddChoice(CLI::App &subcommand, const char *name, std::string &value, const char *choices, const char *help);
