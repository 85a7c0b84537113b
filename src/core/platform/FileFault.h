// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QByteArray>

// These functions explain to the user why a file can't be written or read: its absolute path, the system's reason, and
// what to do. `error` is the system's error number. A relative path is relative to the current folder.

[[nodiscard]] QString WhyNotWritten(const QString &path, int error);
/// Explains why a file of a project isn't written: a symbolic link leads out of the project, to `place`.
[[nodiscard]] QString WhyOutside(const QString &path, const QByteArray &place);
[[nodiscard]] QString WhyNotRead(const QString &path, int error);
/// The same without the path: the system's reason, and what to do. For messages that name the file in another way.
[[nodiscard]] QString ReadFault(int error);
