#pragma once

#include <QList>
#include <QRect>

/// The places of windows in a cascade, the lowest first: each title bar is at least in part in sight.
///
/// `area` is where they go, `title` how high a title bar is with its frame, and `smallest` the size that no window goes
/// below. With more windows than the area has room for they go into several columns, at last beyond the area's edge.
[[nodiscard]] QList<QRect> CascadePlaces(int count, const QSize &area, int title, const QSize &smallest);
