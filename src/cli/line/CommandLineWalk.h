// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

/// Follows the words of a command line through the parser's tree, one after the other. Words may be wrong or missing,
/// so that an unfinished command line can be completed, and a wrong one explained.
class CommandLineWalk
{
public:
    explicit CommandLineWalk(const CLI::App &program);

    void Take(const std::string &word);

    [[nodiscard]] const CLI::App &Program() const { return root; }
    /// The command so far.
    [[nodiscard]] const CLI::App &Command() const { return *app; }
    /// The words of the command so far, after the program's name: "morvanite-cli strings import".
    [[nodiscard]] std::string CommandName() const;
    /// The option whose value is the next word; null if there is none.
    [[nodiscard]] const CLI::Option *Awaiting() const { return awaiting; }
    /// The arguments of the command that don't have a value yet.
    [[nodiscard]] const std::vector<const CLI::Option *> &Arguments() const { return arguments; }
    /// The values of the options and arguments so far, by their names without dashes.
    [[nodiscard]] const std::map<std::string, std::string> &Values() const { return values; }
    [[nodiscard]] bool IsGiven(const CLI::Option &option) const { return given.count(&option) > 0; }
    /// Whether any option so far excludes an option.
    [[nodiscard]] bool IsExcluded(const CLI::Option &option) const;
    /// Whether "--" was among the words: all words behind it are arguments.
    [[nodiscard]] bool HasOptionsEnded() const { return hasOptionsEnded; }
    /// The options that the command takes: its own, and those of the program.
    [[nodiscard]] std::vector<const CLI::Option *> AllOptions() const;
    [[nodiscard]] const CLI::Option *FindOption(const std::string &name) const;
    /// The first unknown command, option or value of a choice, as a message with the word that was probably meant;
    /// empty if there is none.
    [[nodiscard]] const std::string &Fault() const { return fault; }

private:
    void TakeOption(const std::string &word);
    void TakeValue(const CLI::Option &option, const std::string &value);
    void TakeUnknown(const std::string &word, const char *kind, const std::vector<std::string> &candidates);
    [[nodiscard]] const CLI::App *FindCommand(const std::string &name) const;

    const CLI::App &root;
    const CLI::App *app;
    const CLI::Option *awaiting = nullptr;
    std::map<std::string, std::string> values;
    std::set<const CLI::Option *> given;
    std::vector<const CLI::Option *> arguments;
    bool hasOptionsEnded = false;
    std::string fault;
};
