#pragma once

#include "CommandRecord.h"
#include "Session.h"

/// Sends a command to the running window and shows its report. The exit status: a record whose paths are too long for a
/// message is wrong use.
[[nodiscard]] int RunRemotely(Session &session, IdeCommand command, const CommandRecord &record);
[[nodiscard]] int RunRemotely(Session &session, const PackCommandRecord &record);
