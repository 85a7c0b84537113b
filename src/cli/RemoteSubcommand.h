// SPDX-License-Identifier: MIT
#pragma once

#include "CommandRecord.h"
#include "Session.h"

/// Sends a command to the running window and shows its report. Returns the exit status. Paths that are too long for a
/// message count as wrong use.
[[nodiscard]] int RunRemotely(Session &session, IdeCommand command, const CommandRecord &record);
[[nodiscard]] int RunRemotely(Session &session, const PackCommandRecord &record);
