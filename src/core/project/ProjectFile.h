// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Explains why a path isn't that of a project's ".vcproj" file: it is a folder, nothing is there, or the name has
/// another ending. Names the ".vcproj" file that is probably meant. Empty if the path is that of such a file.
[[nodiscard]] QString WhyNotProjectFile(const QString &path);

/// Explains that a new ".vcproj" file would be beside another one, or in a folder of its project, and what would
/// happen then. Empty if there is none.
[[nodiscard]] QString WarnOfNeighbour(const QString &newFile);
