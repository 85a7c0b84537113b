#include "Commands.h"
#include "OpeningReport.h"
#include "ProjectSave.h"
#include "RemoteCommand.h"

namespace
{

class LoadCommand : public ICommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *command = app.add_subcommand("load", "Open a project and report what is wrong with it");
        command->add_option("PROJECT", project, "The project's .vcproj file")->required();
        CLI::Option *remoteOption = command->add_flag("--remote", remote, "Let the running window do it");
        command->add_flag("--strict", strict, STRICT_HELP)->excludes(remoteOption);
        return command;
    }

    int Run(Session &session) override
    {
        const CommandRecord record{AbsolutePath(project)};
        if (remote)
            return RunRemotely(session, COMMAND_LOAD, record);
        if (strict && HasInterruptedSave(session.env, record.projectPath))
            return EXIT_FAILED;
        session.handler.Load(record);
        auto *const document = static_cast<CResDoc *>(session.documents.FindDocument(record.projectPath));
        return TellOfOpening(session, record.projectPath, document, strict) ? session.LastStatus() : int(EXIT_FAILED);
    }

private:
    std::string project;
    bool remote = false;
    bool strict = false;
};

} // namespace

std::unique_ptr<ICommand> MakeLoadCommand()
{
    return std::make_unique<LoadCommand>();
}
