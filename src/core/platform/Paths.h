#pragma once

#include "Text.h"

/// Paths: "\" and "/" both separate. A path is absolute with a leading "/", a leading "\\" or a colon at position 1.

[[nodiscard]] bool IsRelativePath(QStringView path);

/// Everything before the last separator; "." when there is none or it stands at position 0 ("/" for the host's root).
[[nodiscard]] QString DirectoryOf(QStringView path);

/// The name behind the last separator, without its last dot and what follows.
[[nodiscard]] QString FileTitle(QStringView path);

/// What follows the last dot, if that dot lies behind the last separator; else empty.
[[nodiscard]] QString FileExtension(QStringView path);

/// The name behind the last separator.
[[nodiscard]] QString FileName(QStringView path);

/// `path` with "." and ".." resolved and "/" as separator. A ".." that leads a relative path stays; above a root or a
/// drive there is nothing.
[[nodiscard]] QString CanonicalPath(QStringView path);

/// Says whether two paths name the same file: without regard to case, and canonical.
[[nodiscard]] bool IsSamePath(QStringView a, QStringView b);

/// How many characters a path may have that MakeAbsolute makes.
inline constexpr qsizetype LONGEST_PATH = 520;

/// Joins a relative `path` to `base`, in the host's form. False, and no change, when the result would be longer than
/// LONGEST_PATH. A path that isn't relative stays unchanged.
bool MakeAbsolute(QString &path, const QString &base);

/// Turns a path inside `base` into one that begins with ".\". True: `path` may be stored as it now stands.
bool MakeRelative(QString &path, const QString &base);

/// A relative `path` joined to `base`; an absolute one unchanged.
[[nodiscard]] QString ResolvePath(const QString &path, const QString &base);
