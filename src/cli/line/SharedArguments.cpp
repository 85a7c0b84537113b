// SPDX-License-Identifier: MIT
#include "SharedArguments.h"

#include "CommandLine.h"

bool CommandWords::Name(const CLI::App &command) const
{
    bool isNamed = BeginWith(DESCRIBE_WORD);
    for (int i = 1; i < count; ++i)
        isNamed = isNamed || command.get_name() == words[i];
    return isNamed;
}

void AddProject(CLI::App &subcommand, std::string &project)
{
    subcommand.add_option("PROJECT", project, "The project's .vcproj file")->type_name("")->required();
}

void AddChoice(CLI::App &subcommand, const char *name, std::string &value, const char *choices, const char *help)
{
    // The placeholder has the choices, so the help needs no description of the check.
    subcommand.add_option(name, value, help)
        ->check(CLI::IsMember(CommandLine::ChoicesOf(choices)).description(""))
        ->type_name(choices);
}

void NoteIfNamed(CLI::App &command, size_t index, size_t &chosen)
{
    command.callback([index, &chosen] { chosen = index; });
}
