// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace CLI
{
class App;
class Option;
} // namespace CLI

/// The words that the help doesn't show, for the build and for the completion of a shell. Each must be the first word.
inline constexpr char DESCRIBE_WORD[] = "--describe";
inline constexpr char COMPLETE_WORD[] = "--complete";

/// The words of a command line. They decide which commands get their options: making all of them would take most of the
/// time of a start.
class CommandWords
{
public:
    CommandWords(int wordCount, const char *const *programAndWords) : count(wordCount), words(programAndWords) {}

    /// Returns whether the options of a command can be needed: its name is one of the words, or everything is
    /// described.
    [[nodiscard]] bool Name(const CLI::App &command) const;
    [[nodiscard]] bool BeginWith(std::string_view word) const { return count > 1 && words[1] == word; }

private:
    int count;
    const char *const *words;
};

// What the arguments of several commands have in common. The structures of the commands, such as LoadArguments, have
// their names, and the values of their options and arguments. Their `Add` adds the command to the parser and, if the
// words name it, binds its options to the object, which must stay where it is until the words are parsed.

inline constexpr char DEPFILE_HELP[] = "Write the list of files read, for make or ninja";
inline constexpr char JSON_HELP[] = "Print JSON";
inline constexpr char SAVE_DRY_RUN_HELP[] = "Save nothing; show what would change";
inline constexpr char REMOTE_HELP[] = "Let the running window or server run the command";
inline constexpr char STRICT_HELP[] = "Write nothing and exit with 1 if the project isn't complete";

/// Adds the argument PROJECT to a subcommand.
void AddProject(CLI::App &subcommand, std::string &project);

/// Adds an option whose value is one of `choices`, which has "|" between them.
void AddChoice(CLI::App &subcommand, const char *name, std::string &value, const char *choices, const char *help);

/// Sets `chosen` to `index` if the words that are parsed name the command.
void NoteIfNamed(CLI::App &command, size_t index, size_t &chosen);

/// The options and arguments of several commands, of which the words name one.
template <typename... Arguments> struct CommandChoice
{
    /// Adds the commands to the parser; only one if it is certainly meant, because the first word is its name. This
    /// object must stay where it is until the words are parsed.
    void Add(CLI::App &app, const CommandWords &words)
    {
        const bool isCertain = (words.BeginWith(Arguments::NAME) || ...);
        size_t index = 0;
        const auto add = [&](auto &command) {
            if (!isCertain || words.BeginWith(command.NAME))
                NoteIfNamed(*command.Add(app, words), index, chosen);
            ++index;
        };
        std::apply([&](auto &...command) { (add(command), ...); }, all);
    }

    /// Calls `use` with the arguments of the command that the words name.
    template <typename Use> void UseChosen(const Use &use)
    {
        size_t index = 0;
        std::apply([&](auto &...command) { ((index++ == chosen ? use(command) : void()), ...); }, all);
    }

    std::tuple<Arguments...> all;
    size_t chosen = 0; ///< the index of the command that the words name
};
