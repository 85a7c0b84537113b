// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Returns two versions of a text as one, with conflict markers around the lines in which they differ: those between
/// the lines that both begin with and those that both end with. `lineEnd` is the end of the lines with the markers.
/// Returns an empty text if the versions are equal.
[[nodiscard]] QString BothVersions(const QString &ours, const QString &theirs, QStringView lineEnd);
