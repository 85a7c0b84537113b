#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

// What of a file, or of a whole folder, a change shows in. Paths are the host's; that of a whole folder ends in "/".

/// The time of a file's last change in nanoseconds; for a folder a number that differs for other files or other times.
/// Nothing if it can't be read, or is neither a file nor a folder, as its path says.
[[nodiscard]] std::optional<qint64> MarkOf(const QByteArray &path);

/// As many symbolic links as the system follows in one path.
inline constexpr int MOST_LINKS = 40;

/// Where a symbolic link leads, one step; empty for anything else.
[[nodiscard]] QByteArray LinkTarget(const QByteArray &path);

/// The folders in which something happens when what `path` names changes: its own, and that of each file that a
/// symbolic link leads to. Each ends in "/".
[[nodiscard]] std::vector<QByteArray> FoldersOf(QByteArray path);
