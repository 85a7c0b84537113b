// SPDX-License-Identifier: MIT
// The program itself. It has the parser and the client of a running window, so help, messages about wrong words and
// commands with --remote need nothing else and come quickly.
// What the commands do is in libmorvanite-commands.so beside it, with the libraries that it needs.

#include "CommandLineCompletion.h"
#include "CommandLineParser.h"
#include "ExitStatus.h"
#include "Messages.h"
#include "RemoteCommand.h"

#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <unistd.h>

namespace
{

constexpr char LIBRARY[] = "libmorvanite-commands.so";
using FitsFunction = bool (*)(const char *, size_t);
using RunFunction = int (*)(CommandLineParser &, int, char **);

/// Gets the path of the library beside the program. Returns false if the path is too long.
bool FindLibrary(char (&path)[PATH_MAX])
{
    const ssize_t size = readlink("/proc/self/exe", path, sizeof path - 1);
    if (size <= 0)
        return false;
    path[size] = 0;
    char *const name = strrchr(path, '/') + 1;
    if (size_t(name - path) + sizeof LIBRARY > sizeof path)
        return false;
    memcpy(name, LIBRARY, sizeof LIBRARY);
    return true;
}

/// Opens /dev/null for each standard file that is closed; otherwise the next file that is opened would get its number.
/// It is opened so that reading from the input and writing to the outputs fail, as they do if the file is closed.
void FillClosedFiles()
{
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        if (fcntl(fd, F_GETFD) == -1 && open("/dev/null", fd == STDIN_FILENO ? O_WRONLY : O_RDONLY) == -1)
            return;
    }
}

/// Prints the candidates for the last word. Returns nothing, and prints nothing, if the library has to list them.
std::optional<int> Complete(const CLI::App &program, int argc, char **argv)
{
    bool isComplete = true;
    CommandLineCompletion completion(program, [&isComplete](std::string_view, const auto &, const auto &) {
        isComplete = false;
        return std::string();
    });
    const std::string candidates = completion.Candidates({argv + 2, argv + argc});
    return isComplete ? std::optional(Print(candidates) ? 0 : 1) : std::nullopt;
}

/// Returns whether the words have an option that only the library knows how to follow, whatever the command is.
bool NeedsLibrary(const CommandLineParser &parser)
{
    return parser.settings || parser.isVerbose || !parser.debugLog.empty();
}

/// Does what needs no library. Returns the exit status, or nothing if the library has to run.
std::optional<int> RunAlone(CommandLineParser &parser, int argc, char **argv)
{
    const CommandWords words(argc, argv);
    if (words.BeginWith(DESCRIBE_WORD))
        return std::nullopt;
    if (words.BeginWith(COMPLETE_WORD))
        return Complete(parser.Program(), argc, argv);
    if (const std::optional<int> status = parser.Parse(argc, argv))
        return status;
    return NeedsLibrary(parser) ? std::nullopt : RunRemotely(parser.commands, parser.isQuiet);
}

} // namespace

int main(int argc, char **argv)
{
    FillClosedFiles();
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows beyond the limit is an error like any other
    // Static, so that a program that ends with _exit doesn't destroy it, which would take a fifth of its time.
    static CommandLineParser parser(CommandWords(argc, argv));
    try {
        if (const std::optional<int> status = RunAlone(parser, argc, argv))
            _exit(*status); // everything is written
    } catch (const std::bad_alloc &) {
        ComplainUtf8("out of memory");
        return FinalStatus(EXIT_FAILED);
    }
    char path[PATH_MAX];
    void *const library = FindLibrary(path) ? dlopen(path, RTLD_LAZY | RTLD_LOCAL) : nullptr;
    void *const fits = library ? dlsym(library, "MorvaniteFits") : nullptr;
    void *const run = fits ? dlsym(library, "MorvaniteRun") : nullptr;
    if (!run) {
        fprintf(stderr, "morvanite-cli: %s must be beside the program: %s\n", LIBRARY, dlerror());
        return FinalStatus(EXIT_FAILED);
    }
    if (!reinterpret_cast<FitsFunction>(fits)(MORVANITE_VERSION, sizeof(CommandLineParser))) {
        fprintf(stderr, "morvanite-cli: %s is of another release than the program: install both from one package\n",
                path);
        return FinalStatus(EXIT_FAILED);
    }
    return reinterpret_cast<RunFunction>(run)(parser, argc, argv);
}
