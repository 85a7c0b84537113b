// SPDX-License-Identifier: MIT
#include "CommandLineCompletion.h"

#include "CommandLine.h"

namespace
{

constexpr char WORDS[] = "words\n";

bool BeginsWith(const std::string &text, const char *start)
{
    return text.rfind(start, 0) == 0;
}

std::string Line(const std::string &candidate, const std::string &description)
{
    return candidate + (description.empty() ? "" : "\t" + description) + '\n';
}

} // namespace

std::string CommandLineCompletion::Candidates(std::vector<std::string> words)
{
    const std::string current = words.empty() ? std::string() : words.back();
    if (!words.empty())
        words.pop_back();
    for (const std::string &word : words)
        walk.Take(word);
    const bool isOption = !walk.HasOptionsEnded() && BeginsWith(current, "-");
    if (isOption && current.find('=') != std::string::npos) {
        const CLI::Option *const option = walk.FindOption(current.substr(0, current.find('=')));
        return option ? ListValues(*option) : WORDS;
    }
    if (isOption)
        return ListOptions();
    return walk.Awaiting() ? ListValues(*walk.Awaiting()) : ListArguments();
}

std::string CommandLineCompletion::ListOptions() const
{
    std::string lines = WORDS;
    for (const CLI::Option *option : walk.AllOptions()) {
        if (walk.IsExcluded(*option) || (walk.IsGiven(*option) && option->get_items_expected_max() <= 1))
            continue;
        for (const std::string &name : CommandLine::NamesOf(*option))
            lines += Line(name, option->get_description());
    }
    return lines;
}

std::string CommandLineCompletion::ListArguments() const
{
    const std::vector<const CLI::App *> commands = CommandLine::CommandsOf(walk.Command());
    if (commands.empty() && !walk.Arguments().empty())
        return ListValues(*walk.Arguments().front());
    if (commands.empty())
        return walk.HasOptionsEnded() ? WORDS : ListOptions();
    return ListCommands();
}

/// Lists the commands within the command so far; those of the program if it has none.
std::string CommandLineCompletion::ListCommands() const
{
    CommandLineWalk inner(walk.Program());
    if (const auto named = walk.Values().find("COMMAND"); named != walk.Values().end()) // of `help`
        inner.Take(named->second);
    const bool isHelp = CommandLine::CommandsOf(walk.Command()).empty();
    std::string lines = WORDS;
    for (const CLI::App *command : CommandLine::CommandsOf(isHelp ? inner.Command() : walk.Command()))
        lines += Line(command->get_name(), command->get_description());
    return lines;
}

std::string CommandLineCompletion::ListValues(const CLI::Option &option) const
{
    const std::string placeholder = CommandLine::PlaceholderOf(option);
    const std::string_view kind = CommandLine::KindOf(placeholder);
    if (kind == "project")
        return "files *.vcproj\n";
    if (kind == "file")
        return "files\n";
    if (kind == "folder")
        return "folders\n";
    if (kind == "command")
        return ListCommands();
    std::string lines = WORDS;
    for (const std::string &choice : CommandLine::ChoicesOf(placeholder))
        lines += Line(choice, {});
    if (kind != "choice" && kind != "text")
        lines += source(kind, walk, option);
    return lines;
}
