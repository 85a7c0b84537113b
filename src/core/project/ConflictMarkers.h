#pragma once

#include "Text.h"

#include <vector>

/// A line that a merge with conflicts has left in a file.
struct ConflictMarker
{
    int line = 0;   ///< from 1
    QString marker; ///< as it begins the line, such as "<<<<<<<"
};

/// The conflict markers at the starts of a file's lines, at most `most` of them. Looks for them in single bytes and in
/// UTF-16, whatever the file is: a merge may put either into a text of the other. Nothing for a file that can't be
/// read.
[[nodiscard]] std::vector<ConflictMarker> FindConflictMarkers(const QString &path, size_t most = 3);
