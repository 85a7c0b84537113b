// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <vector>

/// A line that a merge with conflicts left in a file.
struct ConflictMarker
{
    int line = 0;   ///< from 1
    QString marker; ///< the beginning of the line, such as "<<<<<<<"
};

/// Finds at most `most` conflict markers at the beginnings of a file's lines. Looks for markers in single bytes and in
/// UTF-16, whatever the file's encoding is, because a merge may put one into a text of the other. Returns none for a
/// file that can't be read.
[[nodiscard]] std::vector<ConflictMarker> FindConflictMarkers(const QString &path, size_t most = 3);
/// The same for the content of a file.
[[nodiscard]] std::vector<ConflictMarker> ConflictMarkersIn(QByteArrayView bytes, size_t most = 3);
