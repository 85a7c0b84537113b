// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include <algorithm>

namespace CommandLine
{

std::string PlaceholderOf(const CLI::Option &option)
{
    if (option.get_positional())
        return option.get_single_name();
    if (option.get_items_expected_max() == 0)
        return {};
    const std::string type = option.get_type_name(); // with a colon and the names of the checks, if it has any
    return type.substr(0, type.find(':'));
}

const char *KindOf(const std::string &placeholder)
{
    static constexpr struct
    {
        const char *placeholder;
        const char *kind;
    } KINDS[] = {
        {"", "none"},           {"PROJECT", "project"},  {"FILE", "file"}, {"DIR", "folder"},
        {"WxH", "resolution"},  {"ENTRY", "kept-entry"}, {"RULE", "rule"}, {"LANGUAGE", "language"},
        {"CODE", "code"},       {"BASE", "file"},        {"OURS", "file"}, {"THEIRS", "file"},
        {"COMMAND", "command"}, {"FILE_B", "file"},      {"ID", "id"},
    };
    const auto *const known = std::find_if(std::begin(KINDS), std::end(KINDS),
                                           [&](const auto &one) { return placeholder == one.placeholder; });
    if (known != std::end(KINDS))
        return known->kind;
    return placeholder.find('|') != std::string::npos ? "choice" : "text";
}

std::vector<std::string> ChoicesOf(const std::string &placeholder)
{
    return placeholder.find('|') != std::string::npos ? CLI::detail::split(placeholder, '|')
                                                      : std::vector<std::string>();
}

std::string Alternatives(const std::vector<std::string> &words)
{
    std::string sentence;
    for (size_t i = 0; i < words.size(); ++i)
        sentence += (i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + words[i];
    return sentence;
}

std::vector<std::string> NamesOf(const CLI::Option &option)
{
    std::vector<std::string> names;
    for (const std::string &name : option.get_lnames())
        names.push_back("--" + name);
    for (const std::string &name : option.get_snames())
        names.push_back("-" + name);
    return names;
}

std::vector<const CLI::Option *> OptionsOf(const CLI::App &app)
{
    return app.get_options(
        [](const CLI::Option *option) { return option->nonpositional() && !option->get_group().empty(); });
}

std::vector<const CLI::Option *> ArgumentsOf(const CLI::App &app)
{
    return app.get_options([](const CLI::Option *option) { return option->get_positional(); });
}

std::vector<const CLI::App *> CommandsOf(const CLI::App &app)
{
    return app.get_subcommands([](const CLI::App *command) { return !command->get_group().empty(); });
}

bool IsForAllCommands(const CLI::App &program, const CLI::Option &option)
{
    return &option != program.get_help_ptr() && &option != program.get_version_ptr();
}

} // namespace CommandLine
