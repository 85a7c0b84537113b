// SPDX-License-Identifier: MIT
#pragma once

#include "AllArguments.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Parses the command line of morvanite-cli, and has what it says: the options of the program, and the options and
/// arguments of each command.
class CommandLineParser
{
public:
    explicit CommandLineParser(const CommandWords &words);
    ~CommandLineParser();
    CommandLineParser(const CommandLineParser &) = delete;
    CommandLineParser &operator=(const CommandLineParser &) = delete;

    [[nodiscard]] const CLI::App &Program() const { return *app; }

    /// Parses the words after the program's name. Returns nothing if the command that they name is to be run. Returns
    /// the exit status if nothing is left to do: help or version are printed, or the message about a wrong word.
    [[nodiscard]] std::optional<int> Parse(int argc, const char *const *argv);

    // The options of the program.
    std::string debugLog;
    std::optional<std::string> settings;
    bool isQuiet = false;
    bool isVerbose = false;
    std::string color;

    AllArguments commands;
    bool isMerge = false; ///< whether the words name the command that git runs

private:
    [[nodiscard]] int PrintHelpOfWords() const;

    std::unique_ptr<CLI::App> app;
    CLI::App *help = nullptr;
    std::vector<std::string> helpWords;
};
