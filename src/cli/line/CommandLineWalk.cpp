// SPDX-License-Identifier: MIT
#include "CommandLineWalk.h"

#include "CommandLine.h"
#include "Suggestion.h"

#include <algorithm>

namespace
{

bool BeginsWithDash(const std::string &word)
{
    return !word.empty() && word.front() == '-';
}

} // namespace

CommandLineWalk::CommandLineWalk(const CLI::App &program)
    : root(program), app(&program), arguments(CommandLine::ArgumentsOf(program))
{
}

void CommandLineWalk::Take(const std::string &word)
{
    if (awaiting && !(awaiting->get_items_expected_max() > 1 && BeginsWithDash(word))) {
        TakeValue(*awaiting, word);
        if (awaiting->get_items_expected_max() <= 1)
            awaiting = nullptr;
    } else if (!hasOptionsEnded && word == "--") {
        hasOptionsEnded = true;
        awaiting = nullptr;
    } else if (!hasOptionsEnded && BeginsWithDash(word) && word != "-") {
        TakeOption(word);
    } else if (const CLI::App *const command = hasOptionsEnded ? nullptr : FindCommand(word)) {
        app = command;
        arguments = CommandLine::ArgumentsOf(*app);
    } else if (!arguments.empty()) {
        TakeValue(*arguments.front(), word);
        if (arguments.front()->get_items_expected_max() <= 1)
            arguments.erase(arguments.begin());
    } else if (const auto commands = CommandLine::CommandsOf(*app); !commands.empty() && hasOptionsEnded) {
        if (fault.empty())
            fault = "'" + word + "' is behind \"--\", where only arguments are; put the command before it";
    } else if (!commands.empty()) {
        std::vector<std::string> names;
        for (const CLI::App *known : commands)
            names.push_back(known->get_name());
        TakeUnknown(word, "command", names);
    }
}

void CommandLineWalk::TakeOption(const std::string &word)
{
    awaiting = nullptr;
    const size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    const CLI::Option *option = FindOption(name);
    const bool isShort = word.size() > 2 && word[1] != '-';
    if (!option && isShort && (option = FindOption(word.substr(0, 2)))) { // "-oFILE"
        given.insert(option);
        if (!CommandLine::PlaceholderOf(*option).empty())
            TakeValue(*option, word.substr(2));
        return;
    }
    if (!option) {
        std::vector<std::string> names;
        for (const CLI::Option *known : AllOptions()) {
            const std::vector<std::string> all = CommandLine::NamesOf(*known);
            names.insert(names.end(), all.begin(), all.end());
        }
        return TakeUnknown(name, "option", names);
    }
    given.insert(option);
    if (equals != std::string::npos)
        TakeValue(*option, word.substr(equals + 1));
    else if (!CommandLine::PlaceholderOf(*option).empty())
        awaiting = option;
}

void CommandLineWalk::TakeValue(const CLI::Option &option, const std::string &value)
{
    values[option.get_single_name()] = value;
    const std::vector<std::string> choices = CommandLine::ChoicesOf(CommandLine::PlaceholderOf(option));
    if (choices.empty() || !fault.empty() || std::find(choices.begin(), choices.end(), value) != choices.end())
        return;
    const std::string nearest = value == "xlf" ? "xliff" : NearestWord(value, choices); // the extension of XLIFF files
    fault = "'" + value + "' is no value of " + CommandLine::NamesOf(option).front() + "; " +
            (nearest.empty() ? "use " + CommandLine::Alternatives(choices) : "did you mean '" + nearest + "'?");
}

void CommandLineWalk::TakeUnknown(const std::string &word, const char *kind, const std::vector<std::string> &candidates)
{
    if (!fault.empty())
        return;
    const bool isLetter = word.size() == 2 && word[0] == '-'; // as near to any other letter
    const std::string nearest = isLetter ? std::string() : NearestWord(word, candidates);
    const std::string owner = app == &root ? "" : " of " + CommandName().substr(root.get_name().size() + 1);
    fault = "'" + word + "' is no " + kind + owner + "; " +
            (nearest.empty() ? "\"" + CommandName() + " --help\" lists them" : "did you mean '" + nearest + "'?");
}

std::string CommandLineWalk::CommandName() const
{
    std::string name;
    for (const CLI::App *part = app; part != &root; part = part->get_parent())
        name.insert(0, " " + part->get_name());
    return root.get_name() + name;
}

const CLI::App *CommandLineWalk::FindCommand(const std::string &name) const
{
    const std::vector<const CLI::App *> commands = CommandLine::CommandsOf(*app);
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const CLI::App *command) { return command->get_name() == name; });
    return found == commands.end() ? nullptr : *found;
}

const CLI::Option *CommandLineWalk::FindOption(const std::string &name) const
{
    for (const CLI::Option *option : AllOptions()) {
        const std::vector<std::string> names = CommandLine::NamesOf(*option);
        if (std::find(names.begin(), names.end(), name) != names.end())
            return option;
    }
    return nullptr;
}

std::vector<const CLI::Option *> CommandLineWalk::AllOptions() const
{
    std::vector<const CLI::Option *> options = CommandLine::OptionsOf(*app);
    if (app != &root) {
        for (const CLI::Option *option : CommandLine::OptionsOf(root)) {
            if (CommandLine::IsForAllCommands(root, *option))
                options.push_back(option);
        }
    }
    return options;
}

bool CommandLineWalk::IsExcluded(const CLI::Option &option) const
{
    return std::any_of(given.begin(), given.end(), [&](const CLI::Option *other) {
        return option.get_excludes().count(const_cast<CLI::Option *>(other)) > 0;
    });
}
