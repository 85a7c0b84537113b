// SPDX-License-Identifier: MIT
#pragma once

#include "CommandLineWalk.h"

#include <functional>

/// Lists the candidates for the last word of an incomplete command line, for the completion of a shell.
///
/// The first line of the output says what the shell has to complete: "words", the lines that follow; "files", with a
/// blank and a pattern if not all of them are wanted; "folders". A line of "words" is the candidate, a tab, and its
/// description, if it has one. The shell chooses those that begin like the word.
class CommandLineCompletion
{
public:
    /// Returns the lines of the candidates for a kind of value (CommandLine::KindOf) that depends on the settings or on
    /// the project. `walk` has the words so far, and `option` is the option or argument that gets the value.
    using Source =
        std::function<std::string(std::string_view kind, const CommandLineWalk &walk, const CLI::Option &option)>;

    CommandLineCompletion(const CLI::App &program, Source candidates) : walk(program), source(std::move(candidates)) {}

    /// `words` are those after the program's name, without the shell's quotes. The last is to be completed; of a word
    /// `--name=value` only the value is.
    [[nodiscard]] std::string Candidates(std::vector<std::string> words);

private:
    [[nodiscard]] std::string ListOptions() const;
    [[nodiscard]] std::string ListArguments() const;
    [[nodiscard]] std::string ListCommands() const;
    [[nodiscard]] std::string ListValues(const CLI::Option &option) const;

    CommandLineWalk walk;
    Source source;
};
