// SPDX-License-Identifier: MIT
#include "CommandLineCompletion.h"

#include "CommandLine.h"
#include "Explanations.h"
#include "KeptFiles.h"
#include "LanguageTable.h"
#include "Rules.h"
#include "Session.h"

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

std::string Codes(Session &, const Values &)
{
    std::string lines;
    for (const Explanation &one : AllExplanations())
        lines += Line(one.code.toStdString(), one.when.toStdString());
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
    {"resolution", ScreenSizes}, {"kept-entry", KeptEntries}, {"rule", RuleIds}, {"code", Codes},
    {"language", LanguageNames},
};

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
    for (const auto &source : SOURCES) {
        if (kind != source.kind)
            continue;
        const auto settings = walk.Values().find("settings");
        const std::string folder = settings == walk.Values().end() ? std::string() : settings->second;
        Session session(QString(), AbsolutePath(folder));
        lines += source.list(session, walk.Values());
    }
    return lines;
}
