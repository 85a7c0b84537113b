// SPDX-License-Identifier: MIT
#include "CommandLineDescription.h"

#include "CommandLine.h"

#include <algorithm>

namespace
{

constexpr int FORMAT = 1; // changes when a key is removed or changes its meaning

/// The first names of some options, sorted, since the parser keeps them in the order of their addresses.
std::vector<std::string> FirstNames(const std::set<CLI::Option *> &options)
{
    std::vector<std::string> names;
    for (const CLI::Option *option : options)
        names.push_back(option->get_positional() ? option->get_single_name() : CommandLine::NamesOf(*option).front());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

QByteArray CommandLineDescription::Of(const CLI::App &program)
{
    QByteArray text;
    CommandLineDescription(text).WriteProgram(program);
    return text + '\n';
}

void CommandLineDescription::WriteProgram(const CLI::App &program)
{
    json.BeginObject();
    json.Key("version");
    json.Number(FORMAT);
    Text("program", program.get_name());
    Text("release", MORVANITE_VERSION);
    WriteContent(program);
    json.EndObject();
}

void CommandLineDescription::WriteContent(const CLI::App &app)
{
    Text("description", app.get_description());
    json.Key("arguments");
    json.BeginArray();
    for (const CLI::Option *argument : CommandLine::ArgumentsOf(app))
        WriteArgument(*argument);
    json.EndArray();
    json.Key("options");
    json.BeginArray();
    for (const CLI::Option *option : CommandLine::OptionsOf(app))
        WriteOption(*option, !app.get_parent() && CommandLine::IsForAllCommands(app, *option));
    json.EndArray();
    json.Key("commands");
    json.BeginArray();
    for (const CLI::App *command : CommandLine::CommandsOf(app)) {
        json.BeginObject();
        Text("name", command->get_name());
        WriteContent(*command);
        json.EndObject();
    }
    json.EndArray();
}

void CommandLineDescription::WriteArgument(const CLI::Option &argument)
{
    json.BeginObject();
    Text("name", argument.get_single_name());
    WriteValue(argument);
    json.EndObject();
}

void CommandLineDescription::WriteOption(const CLI::Option &option, bool isForAll)
{
    json.BeginObject();
    List("names", CommandLine::NamesOf(option));
    Text("value", CommandLine::PlaceholderOf(option));
    WriteValue(option);
    Text("default", option.get_default_str());
    Text("environment", option.get_envname());
    List("needs", FirstNames(option.get_needs()));
    List("excludes", FirstNames(option.get_excludes()));
    Flag("for_all_commands", isForAll);
    json.EndObject();
}

/// Writes what options and arguments have in common.
void CommandLineDescription::WriteValue(const CLI::Option &option)
{
    const std::string placeholder = CommandLine::PlaceholderOf(option);
    Text("description", option.get_description());
    Text("kind", CommandLine::KindOf(placeholder));
    List("choices", CommandLine::ChoicesOf(placeholder));
    Flag("required", option.get_required());
    Flag("repeatable", option.get_items_expected_max() > 1);
}

void CommandLineDescription::Text(const char *key, const std::string &value)
{
    json.Key(key);
    json.String(QString::fromStdString(value));
}

void CommandLineDescription::Flag(const char *key, bool value)
{
    json.Key(key);
    json.Bool(value);
}

void CommandLineDescription::List(const char *key, const std::vector<std::string> &values)
{
    json.Key(key);
    json.BeginArray();
    for (const std::string &value : values)
        json.String(QString::fromStdString(value));
    json.EndArray();
}
