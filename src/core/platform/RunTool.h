#pragma once

#include "Text.h"

#include <vector>

class Environment;

/// The tool couldn't be started.
inline constexpr int TOOL_NOT_STARTED = -1030;

/// Runs an outside tool and waits for its end, however long that takes. 0 once the tool has ended, whatever its exit
/// status; TOOL_NOT_STARTED otherwise, with the system's error number in the debug log.
///
/// The tool gets this process's environment (with the folder of settings that `env` was given) and working directory,
/// reads nothing, and what it prints on its standard output is dropped; its standard error is ours. No other open file
/// reaches it.
[[nodiscard]] int RunTool(Environment &env, const QString &commandLine);

/// The words of a command line: divided by blanks, a double quote begins or ends a stretch in which a blank doesn't
/// divide. There is no escape. Of a program's name that isn't quoted but holds blanks the longest stretch that names a
/// file counts.
[[nodiscard]] std::vector<QByteArray> SplitCommandLine(QStringView commandLine);
