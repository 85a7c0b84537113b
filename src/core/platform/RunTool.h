// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"
#include "SignalCleanup.h"

#include <QStringList>

#include <chrono>
#include <optional>

class Environment;

/// The result of RunTool when the tool couldn't be started.
inline constexpr int TOOL_NOT_STARTED = -1030;

/// How an outside tool ended.
struct ToolEnd
{
    int startError = 0; ///< the system's error number when it couldn't be started, else 0
    int status = 0;     ///< its exit status
    int signal = 0;     ///< the signal that ended it, else 0

    /// Returns what went wrong, as the end of a sentence whose subject is the tool: "ended with status 1". Empty when
    /// it ended with 0.
    [[nodiscard]] QString Text() const;
};

/// The surroundings of a tool that differ from those of this process.
struct ToolStart
{
    QString folder;        ///< its current folder; empty: that of this process
    int errorOutput = -1;  ///< the file that is its standard error; -1: that of this process
    bool ownGroup = false; ///< it leads a process group, so that the processes that it starts are ended with it
};

/// An outside tool that runs at the same time as this program. What RunTool says of the tool's surroundings holds for
/// it too. Main thread only.
class RunningTool
{
public:
    /// Starts a tool. One that can't be started has ended at once.
    RunningTool(Environment &env, const QStringList &commandLine, const ToolStart &start = {});
    ~RunningTool() { End(); }
    RunningTool(const RunningTool &) = delete;
    RunningTool &operator=(const RunningTool &) = delete;

    /// Sends SIGTERM to the tool, unless that was done or the tool has ended, and doesn't wait. To end several tools,
    /// call this for all of them before `End`.
    void BeginEnd();
    /// Ends the tool if it still runs: BeginEnd, and SIGKILL a second after that.
    void End();
    [[nodiscard]] bool IsRunning();
    /// Waits for the tool's end without a time limit.
    const ToolEnd &Wait(const Environment &env);
    /// Waits until one of the tools has ended.
    static void WaitForAny(const Environment &env, const std::vector<RunningTool *> &tools);

private:
    [[nodiscard]] int Handle();
    void WaitForEnd() const;
    void TakeStatus();

    pid_t child = -1; // -1: the status is known
    FileHandle handle;
    SignalCleanup cleanup;
    ToolEnd state;
    std::optional<std::chrono::steady_clock::time_point> killAt; // once it has got SIGTERM
};

/// Runs an outside tool and waits for its end without a time limit. The first word of the command line is the tool's
/// path. Returns 0 once the tool has ended, whatever its exit status. Returns TOOL_NOT_STARTED if it couldn't be
/// started, with the system's error number in the debug log.
///
/// The tool gets this process's environment variables (and the settings folder of `env`) and its current folder. Its
/// standard input is empty, its standard output is discarded, and its standard error is this process's. It gets no
/// other open files. When SIGINT, SIGTERM or SIGHUP ends this program, the tool is ended too (SignalCleanup).
///
/// `end`, if not null, is set to how the tool ended.
[[nodiscard]] int RunTool(Environment &env, const QStringList &commandLine, ToolEnd *end = nullptr);
