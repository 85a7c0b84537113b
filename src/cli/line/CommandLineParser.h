// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI
{
class App;
} // namespace CLI

/// Parses the command line of morvanite-cli. Has the options of the program and the command `help`; the other commands
/// are added to it.
class CommandLineParser
{
public:
    /// `addCommands` adds all commands but `help` to the program.
    explicit CommandLineParser(const std::function<void(CLI::App &program)> &addCommands);
    ~CommandLineParser();
    CommandLineParser(const CommandLineParser &) = delete;
    CommandLineParser &operator=(const CommandLineParser &) = delete;

    [[nodiscard]] const CLI::App &Program() const { return *app; }

    /// Parses the words after the program's name, and calls the callback of the command. Returns nothing if that
    /// command is to be run. Returns the exit status if nothing is left to do: help or version are printed, or the
    /// message about a wrong word.
    [[nodiscard]] std::optional<int> Parse(int argc, const char *const *argv);

    // The options of the program.
    std::string debugLog;
    std::optional<std::string> settings;
    bool isQuiet = false;
    bool isVerbose = false;
    std::string color;

private:
    [[nodiscard]] int PrintHelpOfWords() const;

    std::unique_ptr<CLI::App> app;
    CLI::App *help = nullptr;
    std::vector<std::string> helpWords;
};
