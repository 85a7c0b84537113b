// SPDX-License-Identifier: MIT
#include "CommandLineWalk.h"
#include "Session.h"
#include "Subcommands.h"

namespace
{

class HelpSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        program = &app;
        CLI::App *subcommand = app.add_subcommand("help", "Show the commands, or the options of a command");
        subcommand->add_option("COMMAND", words, "A command, such as pack or \"strings import\"")->type_name("");
        return subcommand;
    }

    int Run(Session &session) override
    {
        CommandLineWalk walk(*program);
        for (const std::string &word : words)
            walk.Take(word);
        if (!walk.Fault().empty() || !walk.Values().empty()) {
            Complain(
                QString::fromStdString(!walk.Fault().empty() ? walk.Fault() : walk.CommandName() + " has no commands"));
            return EXIT_WRONG_USE;
        }
        // The parser's own function would show the help of this subcommand, because it is the one that was parsed.
        const CLI::App &command = walk.Command();
        session.report.WriteBytes(QByteArray::fromStdString(
            command.get_formatter()->make_help(&command, walk.CommandName(), CLI::AppFormatMode::Normal)));
        return EXIT_FINE;
    }

private:
    const CLI::App *program = nullptr;
    std::vector<std::string> words;
};

} // namespace

std::unique_ptr<ISubcommand> MakeHelpSubcommand()
{
    return std::make_unique<HelpSubcommand>();
}
