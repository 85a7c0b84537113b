// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

/// The positions of windows in a cascade, the rearmost window first. At least a part of each title bar is visible.
///
/// `area` is the size of the area for the windows, `title` the height of a title bar with its frame, and `smallest` the
/// minimum size of a window. If there are more windows than fit into one column, they are placed in several columns,
/// which can extend beyond the area's edge.
[[nodiscard]] QList<QRect> CascadePlaces(int count, const QSize &area, int title, const QSize &smallest);
