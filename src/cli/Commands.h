#pragma once

#include <CLI/CLI.hpp>

class Session;

/// A command of morvanite-cli: adds itself to the command line, with its options, and runs.
class ICommand
{
public:
    virtual ~ICommand() = default;
    /// Adds the subcommand and binds its options to this object.
    virtual CLI::App *Add(CLI::App &app) = 0;
    /// Runs with the options of the command line; the exit status.
    virtual int Run(Session &session) = 0;
};

/// Every command, in the order of the help.
[[nodiscard]] std::vector<std::unique_ptr<ICommand>> AllCommands();

std::unique_ptr<ICommand> MakeLoadCommand();
std::unique_ptr<ICommand> MakeSaveCommand();
std::unique_ptr<ICommand> MakeHeadersCommand();
std::unique_ptr<ICommand> MakePackCommand();
std::unique_ptr<ICommand> MakeIdsCommand();
std::unique_ptr<ICommand> MakeInspectCommand();
std::unique_ptr<ICommand> MakeStringsCommand();
std::unique_ptr<ICommand> MakeLayoutsCommand();
std::unique_ptr<ICommand> MakeKeptCommand();
std::unique_ptr<ICommand> MakeResolutionsCommand();
std::unique_ptr<ICommand> MakeServeCommand();
