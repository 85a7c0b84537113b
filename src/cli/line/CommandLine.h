// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

/// What the description and the completion of the command line need to know about the parser's tree.
namespace CommandLine
{

/// The placeholder of an option's or argument's value: "FILE", or "axf|dll" for a choice; empty for a flag. It decides
/// how the value is completed.
[[nodiscard]] std::string PlaceholderOf(const CLI::Option &option);

/// The kind of value that a placeholder is for: "project", "file", "folder", "resolution", "kept-entry", "rule",
/// "language", "id", "command", "choice", "text"; "none" for an empty placeholder.
[[nodiscard]] const char *KindOf(const std::string &placeholder);

/// The values of a placeholder such as "axf|dll"; empty if it isn't a choice.
[[nodiscard]] std::vector<std::string> ChoicesOf(const std::string &placeholder);

/// Returns words as a sentence has them: "a", "a or b", "a, b or c".
[[nodiscard]] std::string Alternatives(const std::vector<std::string> &words);

/// The names of an option with their dashes, the long ones first.
[[nodiscard]] std::vector<std::string> NamesOf(const CLI::Option &option);

/// The options that the help shows, in its order.
[[nodiscard]] std::vector<const CLI::Option *> OptionsOf(const CLI::App &app);

/// The positional arguments in their order.
[[nodiscard]] std::vector<const CLI::Option *> ArgumentsOf(const CLI::App &app);

/// The commands that the help shows, in its order.
[[nodiscard]] std::vector<const CLI::App *> CommandsOf(const CLI::App &app);

/// True for an option of the program that every command takes too: all but --help and --version.
[[nodiscard]] bool IsForAllCommands(const CLI::App &program, const CLI::Option &option);

} // namespace CommandLine
