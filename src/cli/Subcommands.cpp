// SPDX-License-Identifier: MIT
#include "Subcommands.h"

#include "CommandLine.h"
#include "CommandLineCompletion.h"
#include "CommandLineDescription.h"
#include "CommandLineWalk.h"
#include "Session.h"
#include "SignalCleanup.h"
#include "TypedText.h"

#include <QFileInfo>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

std::vector<std::unique_ptr<ISubcommand>> AllSubcommands()
{
    std::vector<std::unique_ptr<ISubcommand>> subcommands;
    subcommands.push_back(MakeInitSubcommand());
    subcommands.push_back(MakeAddSubcommand());
    subcommands.push_back(MakeLoadSubcommand());
    subcommands.push_back(MakeSaveSubcommand());
    subcommands.push_back(MakeHeadersSubcommand());
    subcommands.push_back(MakePackSubcommand());
    subcommands.push_back(MakeCheckSubcommand());
    subcommands.push_back(MakeExplainSubcommand());
    subcommands.push_back(MakeIdsSubcommand());
    subcommands.push_back(MakeInspectSubcommand());
    subcommands.push_back(MakeStringsSubcommand());
    subcommands.push_back(MakeMergeSubcommand());
    subcommands.push_back(MakeGitSubcommand());
    subcommands.push_back(MakeLayoutsSubcommand());
    subcommands.push_back(MakeKeptSubcommand());
    subcommands.push_back(MakeCacheSubcommand());
    subcommands.push_back(MakeResolutionsSubcommand());
    subcommands.push_back(MakeServeSubcommand());
    subcommands.push_back(MakeHelpSubcommand());
    return subcommands;
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

namespace
{

/// The words that the help doesn't show, for the build and for the completion of a shell. Each must be the first word.
constexpr std::string_view DESCRIBE = "--describe";
constexpr std::string_view COMPLETE = "--complete";
/// The command that git runs.
constexpr std::string_view MERGE = "merge";

/// Prints the candidates for the last word. Never writes to standard error, which the user would see while typing.
int Complete(const CLI::App &app, int argc, char **argv)
{
    dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    StandardOutput output(STDOUT_FILENO);
    output.WriteBytes(QByteArray::fromStdString(CommandLineCompletion(app).Candidates({argv + 2, argv + argc})));
    return EXIT_FINE;
}

int Describe(const CLI::App &app)
{
    StandardOutput output(STDOUT_FILENO);
    output.WriteBytes(CommandLineDescription::Of(app));
    output.Flush();
    return output.IsBroken() ? EXIT_FAILED : EXIT_FINE;
}

/// Shown if the program is called without a command.
constexpr char SHORT_HELP[] =
    "morvanite-cli COMMAND ...: manages, numbers and packs the resources of applications\n\n"
    "  morvanite-cli check clock.vcproj\n"
    "  morvanite-cli pack clock.vcproj --input clock.axf --resolution 240x320 --target axf\n\n"
    "\"morvanite-cli help\" lists the commands, \"morvanite-cli help pack\" the options of one.\n";

/// Says what is wrong with the command line. The parser's own messages don't suggest the word that was meant.
void ComplainOf(const CLI::App &app, const std::vector<std::string> &words, const CLI::ParseError &error)
{
    if (words.empty()) {
        StandardOutput(STDERR_FILENO).WriteBytes(SHORT_HELP);
        return;
    }
    CommandLineWalk walk(app);
    for (const std::string &word : words)
        walk.Take(word);
    std::vector<std::string> inner;
    for (const CLI::App *command : CommandLine::CommandsOf(walk.Command()))
        inner.push_back(command->get_name());
    const std::string hint = "; \"" + walk.CommandName() + " --help\" lists the options";
    Complain(QString::fromStdString(!walk.Fault().empty() ? walk.Fault()
                                    : !inner.empty()      ? "a command is missing: " + CommandLine::Alternatives(inner)
                                                          : error.what() + hint));
}

/// The options that every command takes.
struct ProgramOptions
{
    void AddTo(CLI::App &app)
    {
        app.add_option("--debug-log", debugLog, "Append the developer's log to FILE (\"-\": standard error)")
            ->envname("MORVANITE_DEBUG_LOG")
            ->type_name("FILE");
        settings =
            app.add_option("--settings", configFolder, "Read the user's settings from DIR/morvanite/Morvanite.ini")
                ->type_name("DIR");
        app.add_flag("-q,--quiet", isQuiet, "Print only the lines of errors and warnings, and what was asked for");
        app.add_flag("-v,--verbose", isVerbose, "Say on standard error which files are used and what each step does");
        AddChoice(app, "--color", color, "auto|always|never", "When messages have colours (default: auto)");
    }

    std::string debugLog;
    std::string configFolder;
    const CLI::Option *settings = nullptr;
    bool isQuiet = false;
    bool isVerbose = false;
    std::string color;
};

int ParseAndRun(int argc, char **argv)
{
    CLI::App app{"Manage, number and pack the resources of applications for small devices", "morvanite-cli"};
    app.set_help_flag("-h,--help", "Show the options and exit");
    app.set_version_flag("-V,--version", std::string("morvanite-cli ") + MORVANITE_VERSION,
                         "Show the version and exit");
    ProgramOptions options;
    options.AddTo(app);
    app.require_subcommand(1);
    app.fallthrough();

    ISubcommand *chosen = nullptr;
    const auto subcommands = AllSubcommands();
    for (const auto &subcommand : subcommands)
        subcommand->Add(app)->callback([&chosen, &subcommand] { chosen = subcommand.get(); });
    const std::string_view first = argc > 1 ? argv[1] : "";
    if (first == COMPLETE)
        return Complete(app, argc, argv);
    if (first == DESCRIBE)
        return Describe(app);

    if (first == MERGE)
        SetMergeStatus();
    for (int i = 1; i < argc; ++i) {
        if (const QString why = WhyNotUsable(argv[i]); !why.isEmpty()) {
            Complain(why);
            return FinalStatus(EXIT_WRONG_USE);
        }
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        if (error.get_exit_code() == 0) // the help or the version
            return app.exit(error) == 0 ? int(EXIT_FINE) : FinalStatus(EXIT_WRONG_USE);
        ComplainOf(app, {argv + 1, argv + argc}, error);
        return FinalStatus(EXIT_WRONG_USE);
    }
    SetColorMode(options.color);
    if (options.settings->count() > 0 && !QFileInfo(AbsolutePath(options.configFolder)).isDir()) {
        Complain(
            QStringLiteral("--settings %1: there is no such folder").arg(QString::fromStdString(options.configFolder)));
        return FinalStatus(EXIT_WRONG_USE);
    }
    SignalCleanup::Install(); // `serve` blocks the signals and reads them itself
    Session session(QString::fromStdString(options.debugLog), AbsolutePath(options.configFolder), options.isVerbose);
    session.report.hasOnlyProblems = options.isQuiet;
    int status = chosen->Run(session);
    session.report.Flush();
    if (session.report.IsBroken())
        status = EXIT_FAILED;
    // The system frees the memory of a large project faster than the tree's destructors would.
    fflush(nullptr);
    _exit(status);
}

} // namespace

/// Runs the whole program. Returns the exit status.
extern "C" __attribute__((visibility("default"))) int MorvaniteRun(int argc, char **argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows beyond the limit is an error like any other
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::bad_alloc &) {
        Complain(QStringLiteral("out of memory"));
        return FinalStatus(EXIT_FAILED);
    }
}
