// SPDX-License-Identifier: MIT
#pragma once

#include "AllArguments.h"

#include <optional>

/// Lets the running window or server run the command that the words name, if they have --remote, and prints its report;
/// with `isQuiet` only the lines of errors and warnings. Returns the exit status, or nothing if the command has no
/// --remote. Paths that are too long for a message count as wrong use.
[[nodiscard]] std::optional<int> RunRemotely(AllArguments &commands, bool isQuiet);
