// SPDX-License-Identifier: MIT
#pragma once

#include "OpeningCheck.h"
#include "Session.h"

/// Writes to standard error what is wrong with a project that was just opened, with files and lines. `doc` is null if
/// it didn't open. With `strict` it writes everything, and returns true if the command may continue. Without it, it
/// only writes what the report of the opening has no line for, and always returns true.
[[nodiscard]] bool TellOfOpening(Session &session, const QString &project, CResDoc *doc, bool strict);
