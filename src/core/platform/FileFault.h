#pragma once

#include "Text.h"

#include <QByteArray>

// Why a file can't be written or read, in words for the user: its absolute path, the system's reason, and what to do.
// `error` is the system's error number. A relative path counts from the current folder.

[[nodiscard]] QString WhyNotWritten(const QString &path, int error);
/// Why a file of a project isn't written that a symbolic link leads out of the project, to `place`.
[[nodiscard]] QString WhyOutside(const QString &path, const QByteArray &place);
[[nodiscard]] QString WhyNotRead(const QString &path, int error);
