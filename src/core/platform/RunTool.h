// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

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

/// Runs an outside tool and waits for its end without a time limit. The first word of the command line is the tool's
/// path. Returns 0 once the tool has ended, whatever its exit status. Returns TOOL_NOT_STARTED if it couldn't be
/// started, with the system's error number in the debug log.
///
/// The tool gets this process's environment variables (and the settings folder of `env`) and its current folder. Its
/// standard input is empty, its standard output is discarded, and its standard error is this process's. It gets no
/// other open files. When SIGINT or SIGTERM ends this program, the tool is ended too (SignalCleanup).
///
/// `end`, if not null, is set to how the tool ended.
[[nodiscard]] int RunTool(Environment &env, const QStringList &commandLine, ToolEnd *end = nullptr);
