// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class Session;

/// Prints a string file as UTF-8 with lines that end in a line feed, even if a load of it would fail. Returns the exit
/// status.
[[nodiscard]] int PrintStringFile(Session &session, const QString &path);
