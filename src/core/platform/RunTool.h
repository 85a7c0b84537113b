#pragma once

#include "Text.h"

#include <QStringList>

class Environment;

/// The tool couldn't be started.
inline constexpr int TOOL_NOT_STARTED = -1030;

/// How an outside tool ended.
struct ToolEnd
{
    int startError = 0; ///< the system's error number when it couldn't be started, else 0
    int status = 0;     ///< its exit status
    int signal = 0;     ///< the signal that ended it, else 0

    /// What is wrong with it, for a sentence that begins with the tool: "ended with status 1". Empty when it ended with
    /// 0.
    [[nodiscard]] QString Text() const;
};

/// Runs an outside tool, whose path is the first word of the command line, and waits for its end, however long that
/// takes. 0 once the tool has ended, whatever its exit status; TOOL_NOT_STARTED otherwise, with the system's error
/// number in the debug log.
///
/// The tool gets this process's environment (with the folder of settings that `env` was given) and working directory,
/// reads nothing, and what it prints on its standard output is dropped; its standard error is ours. No other open file
/// reaches it. When SIGINT or SIGTERM ends this program the tool is ended too (SignalCleanup).
///
/// `end`, if not null, gets how it ended.
[[nodiscard]] int RunTool(Environment &env, const QStringList &commandLine, ToolEnd *end = nullptr);
