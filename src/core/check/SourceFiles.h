// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Returns the absolute paths of the files that a pattern matches, sorted. The pattern is relative to `folder`
/// (absolute path) or absolute. "*" matches any characters of a name, and "**" any number of folders. Both leave out
/// names that begin with ".", and "**" leaves out links to folders. "\" counts as "/".
[[nodiscard]] QStringList FilesOfPattern(const QString &folder, const QString &pattern);
