// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

/// Paths: both "\" and "/" are separators. A path is absolute if it begins with "/" or "\\", or has a colon at position
/// 1 (from 0).

[[nodiscard]] bool IsRelativePath(QStringView path);

/// Everything before the last separator. "." when there is none, or when it is the first character ("/" for the host's
/// root).
[[nodiscard]] QString DirectoryOf(QStringView path);

/// The name after the last separator, without its last dot and the text after that.
[[nodiscard]] QString FileTitle(QStringView path);

/// The text after the last dot, if that dot is after the last separator; otherwise empty.
[[nodiscard]] QString FileExtension(QStringView path);

/// The name after the last separator.
[[nodiscard]] QString FileName(QStringView path);

/// `path` with "." and ".." resolved and "/" as separator. A ".." at the beginning of a relative path stays; a ".."
/// directly below a root or a drive is removed.
[[nodiscard]] QString CanonicalPath(QStringView path);

/// Returns whether two paths name the same file. Compares the canonical paths without regard to case.
[[nodiscard]] bool IsSamePath(QStringView a, QStringView b);

/// The largest length of a path that MakeAbsolute makes, in characters.
inline constexpr qsizetype LONGEST_PATH = 520;

/// Joins a relative `path` to `base`, in the host's form. Returns false, and changes nothing, when the result would be
/// longer than LONGEST_PATH. An absolute path stays unchanged.
bool MakeAbsolute(QString &path, const QString &base);

/// Turns a path inside `base` into one that begins with ".\". True when `path` may be stored as it is now.
bool MakeRelative(QString &path, const QString &base);

/// A relative `path` joined to `base`; an absolute one unchanged.
[[nodiscard]] QString ResolvePath(const QString &path, const QString &base);
