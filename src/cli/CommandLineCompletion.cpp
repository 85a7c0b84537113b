// SPDX-License-Identifier: MIT
#include "CommandLineCompletion.h"

#include "CommandLine.h"
#include "KeptFiles.h"
#include "LanguageTable.h"
#include "Rules.h"
#include "Session.h"

#include <algorithm>

namespace
{

using Values = std::map<std::string, std::string>;

constexpr char WORDS[] = "words\n";

bool BeginsWith(const std::string &text, const char *start)
{
    return text.rfind(start, 0) == 0;
}

std::string Line(const std::string &candidate, const std::string &description)
{
    return candidate + (description.empty() ? "" : "\t" + description) + '\n';
}

std::string ScreenSizes(Session &session, const Values &)
{
    std::string lines;
    session.tables.LoadOnce(session.env);
    const CResoTable &sizes = session.tables.resolutions;
    for (int i = 0; i < sizes.Count(); ++i)
        lines += Line(std::to_string(sizes.At(i).width) + 'x' + std::to_string(sizes.At(i).height), {});
    return lines;
}

std::string KeptEntries(Session &, const Values &values)
{
    std::string lines;
    const auto project = values.find("PROJECT");
    if (project != values.end()) {
        for (const KeptFiles::Entry &entry : KeptFiles(AbsolutePath(project->second)).Entries())
            lines += Line(std::to_string(entry.number), entry.time.toString(Qt::ISODate).toStdString());
    }
    return lines;
}

std::string RuleIds(Session &, const Values &)
{
    std::string lines;
    for (const Rule &rule : AllRules())
        lines += Line(rule.id, rule.summary);
    return lines;
}

std::string LanguageNames(Session &session, const Values &)
{
    std::string lines;
    for (const KnownLanguage &known : KnownLanguages(session.env))
        lines += Line(known.name.toStdString(), known.code.toStdString());
    return lines;
}

/// The kinds of values whose candidates depend on the settings or the project.
constexpr struct
{
    std::string_view kind;
    std::string (*list)(Session &session, const Values &values);
} SOURCES[] = {
    {"resolution", ScreenSizes},
    {"kept-entry", KeptEntries},
    {"rule", RuleIds},
    {"language", LanguageNames},
};

} // namespace

std::string CommandLineCompletion::Candidates(std::vector<std::string> words)
{
    const std::string current = words.empty() ? std::string() : words.back();
    if (!words.empty())
        words.pop_back();
    arguments = CommandLine::ArgumentsOf(*app);
    for (const std::string &word : words)
        Take(word);
    const bool isOption = !hasOptionsEnded && BeginsWith(current, "-");
    if (isOption && current.find('=') != std::string::npos) {
        const CLI::Option *const option = FindOption(current.substr(0, current.find('=')));
        return option ? ListValues(*option) : WORDS;
    }
    if (isOption)
        return ListOptions();
    return awaiting ? ListValues(*awaiting) : ListArguments();
}

void CommandLineCompletion::Take(const std::string &word)
{
    if (awaiting && !(awaiting->get_items_expected_max() > 1 && BeginsWith(word, "-"))) {
        values[awaiting->get_single_name()] = word;
        if (awaiting->get_items_expected_max() <= 1)
            awaiting = nullptr;
    } else if (!hasOptionsEnded && word == "--") {
        hasOptionsEnded = true;
        awaiting = nullptr;
    } else if (!hasOptionsEnded && BeginsWith(word, "-")) {
        TakeOption(word);
    } else if (const CLI::App *const command = FindCommand(word)) {
        app = command;
        arguments = CommandLine::ArgumentsOf(*app);
    } else if (!arguments.empty()) {
        values[arguments.front()->get_single_name()] = word;
        if (arguments.front()->get_items_expected_max() <= 1)
            arguments.erase(arguments.begin());
    }
}

void CommandLineCompletion::TakeOption(const std::string &word)
{
    awaiting = nullptr;
    const size_t equals = word.find('=');
    const CLI::Option *const option = FindOption(word.substr(0, equals));
    if (!option)
        return;
    given.insert(option);
    if (equals != std::string::npos)
        values[option->get_single_name()] = word.substr(equals + 1);
    else if (!CommandLine::PlaceholderOf(*option).empty())
        awaiting = option;
}

const CLI::App *CommandLineCompletion::FindCommand(const std::string &name) const
{
    const std::vector<const CLI::App *> commands = CommandLine::CommandsOf(*app);
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const CLI::App *command) { return command->get_name() == name; });
    return found == commands.end() ? nullptr : *found;
}

const CLI::Option *CommandLineCompletion::FindOption(const std::string &name) const
{
    for (const CLI::Option *option : AllOptions()) {
        const std::vector<std::string> names = CommandLine::NamesOf(*option);
        if (std::find(names.begin(), names.end(), name) != names.end())
            return option;
    }
    return nullptr;
}

/// The options that the command takes: its own, and those of the program.
std::vector<const CLI::Option *> CommandLineCompletion::AllOptions() const
{
    std::vector<const CLI::Option *> options = CommandLine::OptionsOf(*app);
    if (app != &root) {
        for (const CLI::Option *option : CommandLine::OptionsOf(root)) {
            if (CommandLine::IsForAllCommands(*option))
                options.push_back(option);
        }
    }
    return options;
}

std::string CommandLineCompletion::ListOptions() const
{
    std::string lines = WORDS;
    for (const CLI::Option *option : AllOptions()) {
        const bool isExcluded = std::any_of(given.begin(), given.end(), [&](const CLI::Option *other) {
            return option->get_excludes().count(const_cast<CLI::Option *>(other)) > 0;
        });
        if (isExcluded || (given.count(option) > 0 && option->get_items_expected_max() <= 1))
            continue;
        for (const std::string &name : CommandLine::NamesOf(*option))
            lines += Line(name, option->get_description());
    }
    return lines;
}

std::string CommandLineCompletion::ListArguments() const
{
    const std::vector<const CLI::App *> commands = CommandLine::CommandsOf(*app);
    if (commands.empty() && !arguments.empty())
        return ListValues(*arguments.front());
    if (commands.empty())
        return hasOptionsEnded ? WORDS : ListOptions();
    std::string lines = WORDS;
    for (const CLI::App *command : commands)
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
    std::string lines = WORDS;
    for (const std::string &choice : CommandLine::ChoicesOf(placeholder))
        lines += Line(choice, {});
    for (const auto &source : SOURCES) {
        if (kind != source.kind)
            continue;
        const auto settings = values.find("settings");
        const std::string folder = settings == values.end() ? std::string() : settings->second;
        Session session(QString(), AbsolutePath(folder));
        lines += source.list(session, values);
    }
    return lines;
}
