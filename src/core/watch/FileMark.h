// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

// A mark changes whenever a file, or a whole folder, changes. Paths are host paths; the path of a whole folder ends in
// "/".

/// The time of a file's last change in nanoseconds; for a folder, a number that depends on its files and their times.
/// Nothing if it can't be read, or isn't what its path says, a file or a folder.
[[nodiscard]] std::optional<qint64> MarkOf(const QByteArray &path);

/// The number of symbolic links that the system follows in one path.
inline constexpr int MOST_LINKS = 40;

/// The direct target of a symbolic link; empty for anything else.
[[nodiscard]] QByteArray LinkTarget(const QByteArray &path);

/// The folders that have an event when the file or folder at `path` changes: its own folder, and that of each target of
/// a symbolic link. Each ends in "/".
[[nodiscard]] std::vector<QByteArray> FoldersOf(QByteArray path);
