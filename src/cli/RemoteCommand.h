#pragma once

#include "Session.h"

/// Runs a command here, or sends it to the running window. The exit status.
[[nodiscard]] int RunCommand(Session &session, CommandId command, const QByteArray &record, bool remote);
