// SPDX-License-Identifier: MIT
#pragma once

#include "SharedArguments.h"

// The options and arguments of the commands that find and explain faults.

/// The options and arguments of `check`.
struct CheckArguments
{
    static constexpr char NAME[] = "check";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    std::string format = "text";
    std::string output;
    std::string failOn = "error";
    std::vector<std::string> rules;
    std::vector<std::string> resolutions;
    std::string header;
    std::string baseline;
    std::string newBaseline;
    std::string explain;
    bool summary = false;
};

/// The options and arguments of `explain`.
struct ExplainArguments
{
    static constexpr char NAME[] = "explain";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string code;
};
