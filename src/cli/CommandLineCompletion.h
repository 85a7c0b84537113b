// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

/// Lists the candidates for the last word of an incomplete command line, for the completion of a shell.
///
/// The first line of the output says what the shell has to complete: "words", the lines that follow; "files", with a
/// blank and a pattern if not all of them are wanted; "folders". A line of "words" is the candidate, a tab, and its
/// description, if it has one. The shell chooses those that begin like the word.
class CommandLineCompletion
{
public:
    explicit CommandLineCompletion(const CLI::App &program) : root(program), app(&program) {}

    /// `words` are those after the program's name, without the shell's quotes. The last is to be completed; of a word
    /// `--name=value` only the value is.
    [[nodiscard]] std::string Candidates(std::vector<std::string> words);

private:
    void Take(const std::string &word);
    void TakeOption(const std::string &word);
    [[nodiscard]] const CLI::App *FindCommand(const std::string &name) const;
    [[nodiscard]] const CLI::Option *FindOption(const std::string &name) const;
    [[nodiscard]] std::vector<const CLI::Option *> AllOptions() const;
    [[nodiscard]] std::string ListOptions() const;
    [[nodiscard]] std::string ListArguments() const;
    [[nodiscard]] std::string ListValues(const CLI::Option &option) const;

    const CLI::App &root;
    const CLI::App *app;                        // the command so far
    const CLI::Option *awaiting = nullptr;      // the option whose value is the next word
    std::map<std::string, std::string> values;  // of the options and arguments so far, by their names
    std::set<const CLI::Option *> given;        // the options so far
    std::vector<const CLI::Option *> arguments; // those of the command that don't have a value yet
    bool hasOptionsEnded = false;               // by "--"
};
