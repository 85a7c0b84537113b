// SPDX-License-Identifier: MIT
#include "Subcommands.h"

#include "CommandLineCompletion.h"
#include "CommandLineDescription.h"
#include "CommandLineParser.h"
#include "CompletionSources.h"
#include "RemoteCommand.h"
#include "Session.h"
#include "SignalCleanup.h"

#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace
{

/// Prints the candidates for the last word. Never writes to standard error, which the user would see while typing.
int Complete(const CLI::App &app, int argc, char **argv)
{
    dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    return Print(CommandLineCompletion(app, CandidatesOf).Candidates({argv + 2, argv + argc})) ? EXIT_FINE
                                                                                               : EXIT_FAILED;
}

int Describe(const CLI::App &app)
{
    StandardOutput output(STDOUT_FILENO);
    output.WriteBytes(CommandLineDescription::Of(app));
    output.Flush();
    return output.IsBroken() ? EXIT_FAILED : EXIT_FINE;
}

/// Runs what the words ask for. Returns the exit status, or ends the program with it.
int Run(CommandLineParser &parser, int argc, char **argv)
{
    const CommandWords words(argc, argv);
    if (words.BeginWith(COMPLETE_WORD))
        return Complete(parser.Program(), argc, argv);
    if (words.BeginWith(DESCRIBE_WORD))
        return Describe(parser.Program());

    // The program has copies of its own of what these set.
    SetColorMode(parser.color);
    if (parser.isMerge)
        SetMergeStatus();
    const QString settings = AbsolutePath(parser.settings.value_or(std::string()));
    if (parser.settings && !QFileInfo(settings).isDir()) {
        Complain(
            QStringLiteral("--settings %1: there is no such folder").arg(QString::fromStdString(*parser.settings)));
        return FinalStatus(EXIT_WRONG_USE);
    }
    SignalCleanup::Install(); // `serve` blocks the signals and reads them itself
    Session session(QString::fromStdString(parser.debugLog), settings, parser.isVerbose);
    session.report.hasOnlyProblems = parser.isQuiet;
    const std::optional<int> remote = RunRemotely(parser.commands, parser.isQuiet);
    int status = remote ? *remote : MakeChosen(parser.commands)->Run(session);
    session.report.Flush();
    if (session.report.IsBroken())
        status = EXIT_FAILED;
    // The system frees the memory of a large project faster than the tree's destructors would.
    fflush(nullptr);
    _exit(status);
}

} // namespace

/// Returns whether a program of that release, whose parser has that size in bytes, can call MorvaniteRun.
extern "C" __attribute__((visibility("default"))) bool MorvaniteFits(const char *release, size_t parserSize)
{
    return std::string_view(release) == MORVANITE_VERSION && parserSize == sizeof(CommandLineParser);
}

/// Does what the program can't do alone. `parser` is that of the program, and has parsed the words. Returns the exit
/// status.
extern "C" __attribute__((visibility("default"))) int MorvaniteRun(CommandLineParser &parser, int argc, char **argv)
{
    try {
        return Run(parser, argc, argv);
    } catch (const std::bad_alloc &) {
        Complain(QStringLiteral("out of memory"));
        return FinalStatus(EXIT_FAILED);
    }
}
