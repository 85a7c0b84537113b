// SPDX-License-Identifier: MIT
#include "RunTool.h"

#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "SignalCleanup.h"

#include <algorithm>
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

/// The state in which the child starts: its folder, the three standard files, no other open files, and signals as a
/// shell sets them.
class SpawnSettings
{
public:
    explicit SpawnSettings(const ToolStart &start)
    {
        posix_spawn_file_actions_init(&actions);
        if (!start.folder.isEmpty())
            posix_spawn_file_actions_addchdir_np(&actions, HostPath(start.folder).constData());
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        if (start.errorOutput >= 0)
            posix_spawn_file_actions_adddup2(&actions, start.errorOutput, STDERR_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
        posix_spawnattr_init(&attributes);
        const int group = start.ownGroup ? POSIX_SPAWN_SETPGROUP : 0; // a new group, whose number is the child's
        posix_spawnattr_setflags(&attributes, short(POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | group));
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

} // namespace

QString ToolEnd::Text() const
{
    if (startError != 0)
        return QStringLiteral("could not be started: %1").arg(QString::fromLocal8Bit(strerror(startError)));
    if (signal != 0)
        return QStringLiteral("was ended by signal %1 (%2)").arg(signal).arg(QString::fromLocal8Bit(strsignal(signal)));
    return status != 0 ? QStringLiteral("ended with status %1").arg(status) : QString();
}

RunningTool::RunningTool(Environment &env, const QStringList &commandLine, const ToolStart &start)
{
    std::vector<QByteArray> words;
    for (const QString &word : commandLine)
        words.push_back(words.empty() ? HostPath(word) : word.toUtf8());
    std::vector<char *> arguments;
    for (QByteArray &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    const SpawnSettings settings(start);
    ToolVariables variables(env);
    {
        const SignalHold hold;
        state.startError = words.empty() ? ENOENT
                                         : posix_spawn(&child, arguments.front(), &settings.actions,
                                                       &settings.attributes, arguments.data(), variables.All());
        if (state.startError == 0)
            cleanup = SignalCleanup::OfChild(child);
    }
    if (state.startError != 0) {
        child = -1;
        env.DebugTrace("CreateProcess failed (%d)\n", state.startError);
    }
}

void RunningTool::BeginEnd()
{
    if (killAt || !IsRunning())
        return;
    SignalCleanup::EndChild(child, SIGTERM);
    killAt = std::chrono::steady_clock::now() + std::chrono::seconds(1);
}

void RunningTool::End()
{
    BeginEnd();
    if (!IsRunning())
        return;
    const auto patience = std::chrono::ceil<std::chrono::milliseconds>(*killAt - std::chrono::steady_clock::now());
    pollfd ends{Handle(), POLLIN, 0};
    if (!handle.IsOpen() || poll(&ends, 1, std::max(int(patience.count()), 0)) != 1)
        SignalCleanup::EndChild(child, SIGKILL);
    WaitForEnd();
    TakeStatus();
}

bool RunningTool::IsRunning()
{
    siginfo_t info = {};
    if (child > 0 && waitid(P_PID, id_t(child), &info, WEXITED | WNOWAIT | WNOHANG) == 0 && info.si_pid == 0)
        return true;
    TakeStatus();
    return false;
}

int RunningTool::Handle()
{
    if (!handle.IsOpen())
        handle = FileHandle(int(syscall(SYS_pidfd_open, child, 0)));
    return handle.Get();
}

/// Leaves the status to be read, so that no other process can get the child's number.
void RunningTool::WaitForEnd() const
{
    siginfo_t info;
    while (waitid(P_PID, id_t(child), &info, WEXITED | WNOWAIT) < 0 && errno == EINTR) {
    }
}

void RunningTool::TakeStatus()
{
    if (child <= 0)
        return;
    cleanup.Release();
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    state.status = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    state.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    child = -1;
}

const ToolEnd &RunningTool::Wait(const Environment &env)
{
    WaitForAny(env, {this});
    TakeStatus();
    return state;
}

void RunningTool::WaitForAny(const Environment &env, const std::vector<RunningTool *> &tools)
{
    constexpr int PATIENCE_MS = 50;
    std::vector<pollfd> ends;
    for (RunningTool *tool : tools) {
        if (tool->child <= 0)
            return;
        if (tools.size() == 1 && !env.whileWaiting)
            return tool->WaitForEnd(); // without making a handle
        ends.push_back({tool->Handle(), POLLIN, 0});
        if (!tool->handle.IsOpen())
            return tool->WaitForEnd(); // a system without such handles
    }
    for (int ended = 0; ended == 0 || (ended < 0 && errno == EINTR);) {
        ended = poll(ends.data(), ends.size(), env.whileWaiting ? PATIENCE_MS : -1);
        if (ended == 0)
            env.whileWaiting();
    }
}

int RunTool(Environment &env, const QStringList &commandLine, ToolEnd *end)
{
    env.FlushOutput();
    RunningTool tool(env, commandLine);
    const ToolEnd &result = tool.Wait(env);
    if (end)
        *end = result;
    return result.startError == 0 ? 0 : TOOL_NOT_STARTED;
}
