// SPDX-License-Identifier: MIT
#pragma once

#include "SharedArguments.h"

#include <array>

// The options and arguments of the commands for git and for IDEs.

/// The options and arguments of `merge`.
struct MergeArguments
{
    static constexpr char NAME[] = "merge";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::array<std::string, 3> paths; ///< BASE, OURS and THEIRS
    std::string name;
    std::string conflicts = "mark";
};

/// The options and arguments of `git`.
struct GitArguments
{
    static constexpr char NAME[] = "git";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    bool isInstall = false; ///< `git install`, otherwise `git status`
    bool isGlobal = false;
};

/// The options and arguments of `serve`.
struct ServeArguments
{
    static constexpr char NAME[] = "serve";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    static constexpr int MOST_MINUTES = 7 * 24 * 60; // in milliseconds they fit into the timeout of poll
    int idleMinutes = 30;
};
