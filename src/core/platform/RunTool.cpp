// SPDX-License-Identifier: MIT
#include "RunTool.h"

#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "SignalCleanup.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <list>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// The environment variables of the child: those of this process, with the settings of this process and the project.
class ToolVariables
{
public:
    explicit ToolVariables(const Environment &env) : pointers(environ, End())
    {
        Set("XDG_CONFIG_HOME", env.ConfigFolder());
        // The tool runs in the project's folder, and a relative path would name another folder there.
        if (qEnvironmentVariableIsSet("MORVANITE_PROGRAM_DIR"))
            Set("MORVANITE_PROGRAM_DIR", env.ProgramDir());
        if (!env.settings.ProjectFile().isEmpty())
            Set("MORVANITE_PROJECT_DIR", DirectoryOf(env.settings.ProjectFile()));
        pointers.push_back(nullptr);
    }

    [[nodiscard]] char *const *All() { return pointers.data(); }

private:
    static char **End()
    {
        char **end = environ;
        while (*end)
            ++end;
        return end;
    }

    /// An empty value leaves the variable as it is.
    void Set(const QByteArray &name, const QString &value)
    {
        if (value.isEmpty())
            return;
        const QByteArray start = name + '=';
        std::erase_if(pointers, [&](const char *variable) {
            return std::strncmp(variable, start.constData(), size_t(start.size())) == 0;
        });
        pointers.push_back(own.emplace_back(start + value.toUtf8()).data());
    }

    std::list<QByteArray> own;
    std::vector<char *> pointers;
};

/// The state in which the child starts: the three standard files, no other open files, and signals as a shell sets
/// them.
class SpawnSettings
{
public:
    SpawnSettings()
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGXFSZ);
        posix_spawnattr_setsigdefault(&attributes, &signals);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings &) = delete;
    SpawnSettings &operator=(const SpawnSettings &) = delete;

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

/// Waits for the end of a child but leaves its status to be read, so that no other process can get its number.
void WaitFor(pid_t child, const std::function<void()> &meanwhile)
{
    constexpr int PATIENCE_MS = 50;
    const FileHandle watched(meanwhile ? int(syscall(SYS_pidfd_open, child, 0)) : -1);
    pollfd ends{watched.Get(), POLLIN, 0};
    for (int ended = 0; watched.IsOpen() && ended <= 0;) {
        ended = poll(&ends, 1, PATIENCE_MS);
        if (ended < 0 && errno != EINTR)
            break;
        if (ended == 0)
            meanwhile();
    }
    siginfo_t info;
    while (waitid(P_PID, id_t(child), &info, WEXITED | WNOWAIT) < 0 && errno == EINTR) {
    }
}

/// Starts a program and waits for its end.
ToolEnd Run(const Environment &env, const std::vector<char *> &arguments)
{
    const SpawnSettings settings;
    ToolVariables variables(env);
    pid_t child = -1;
    SignalCleanup cleanup;
    ToolEnd end;
    {
        const SignalHold hold;
        end.startError = posix_spawn(&child, arguments.front(), &settings.actions, &settings.attributes,
                                     arguments.data(), variables.All());
        if (end.startError != 0)
            return end;
        cleanup = SignalCleanup::OfChild(child);
    }
    WaitFor(child, env.whileWaiting);
    cleanup.Release();
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    end.status = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return end;
}

} // namespace

QString ToolEnd::Text() const
{
    if (startError != 0)
        return QStringLiteral("could not be started: %1").arg(QString::fromLocal8Bit(strerror(startError)));
    if (signal != 0)
        return QStringLiteral("was ended by signal %1 (%2)").arg(signal).arg(QString::fromLocal8Bit(strsignal(signal)));
    return status != 0 ? QStringLiteral("ended with status %1").arg(status) : QString();
}

int RunTool(Environment &env, const QStringList &commandLine, ToolEnd *end)
{
    ToolEnd unwanted;
    ToolEnd &result = end ? *end : unwanted;
    result = ToolEnd();
    env.FlushOutput();
    if (commandLine.isEmpty()) {
        result.startError = ENOENT;
        env.DebugTrace("CreateProcess failed (%d)\n", ENOENT);
        return TOOL_NOT_STARTED;
    }
    std::vector<QByteArray> words;
    for (const QString &word : commandLine)
        words.push_back(words.empty() ? HostPath(word) : word.toUtf8());
    std::vector<char *> arguments;
    for (QByteArray &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    result = Run(env, arguments);
    if (result.startError == 0)
        return 0;
    env.DebugTrace("CreateProcess failed (%d)\n", result.startError);
    return TOOL_NOT_STARTED;
}
