#include "Commands.h"

#include "Session.h"
#include "SignalCleanup.h"
#include "TypedText.h"

#include <QFileInfo>

#include <csignal>
#include <cstdlib>
#include <unistd.h>

std::vector<std::unique_ptr<ICommand>> AllCommands()
{
    std::vector<std::unique_ptr<ICommand>> commands;
    commands.push_back(MakeLoadCommand());
    commands.push_back(MakeSaveCommand());
    commands.push_back(MakeHeadersCommand());
    commands.push_back(MakePackCommand());
    commands.push_back(MakeIdsCommand());
    commands.push_back(MakeInspectCommand());
    commands.push_back(MakeStringsCommand());
    commands.push_back(MakeLayoutsCommand());
    commands.push_back(MakeKeptCommand());
    commands.push_back(MakeResolutionsCommand());
    commands.push_back(MakeServeCommand());
    return commands;
}

namespace
{

int ParseAndRun(int argc, char **argv)
{
    CLI::App app{"Morvanite: manages, numbers and packs the resources of applications on small devices.",
                 "morvanite-cli"};
    app.set_version_flag("--version", std::string("morvanite-cli ") + MORVANITE_VERSION);
    std::string debugLog;
    app.add_option("--debug-log", debugLog, "Append the developer's log to a file; \"-\" is standard error")
        ->envname("MORVANITE_DEBUG_LOG")
        ->type_name("FILE");
    std::string configFolder;
    const CLI::Option *settings =
        app.add_option("--settings", configFolder,
                       "A folder with settings in morvanite/Morvanite.ini, in place of the user's configuration folder")
            ->type_name("DIR");
    app.require_subcommand(1);
    app.fallthrough();

    for (int i = 1; i < argc; ++i) {
        if (const QString why = WhyNotUsable(argv[i]); !why.isEmpty()) {
            Complain(why);
            return EXIT_WRONG_USE;
        }
    }
    ICommand *chosen = nullptr;
    const auto commands = AllCommands();
    for (const auto &command : commands)
        command->Add(app)->callback([&chosen, &command] { chosen = command.get(); });
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? EXIT_FINE : EXIT_WRONG_USE;
    }
    if (settings->count() > 0 && !QFileInfo(AbsolutePath(configFolder)).isDir()) {
        Complain(QStringLiteral("--settings %1: there is no such folder").arg(QString::fromStdString(configFolder)));
        return EXIT_WRONG_USE;
    }
    SignalCleanup::Install(); // `serve` holds the signals back and reads them itself
    Session session(QString::fromStdString(debugLog), AbsolutePath(configFolder));
    int status = chosen->Run(session);
    session.report.Flush();
    if (session.report.IsBroken())
        status = EXIT_FAILED;
    // The system takes the memory of a large project back faster than the tree's destructors would.
    fflush(nullptr);
    _exit(status);
}

} // namespace

/// The whole program, from the command line to the exit status.
extern "C" __attribute__((visibility("default"))) int MorvaniteRun(int argc, char **argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows beyond the limit is an error like any other
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::bad_alloc &) {
        Complain(QStringLiteral("out of memory"));
        return EXIT_FAILED;
    }
}
