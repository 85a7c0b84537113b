// SPDX-License-Identifier: MIT
#include "Cascade.h"

QList<QRect> CascadePlaces(int count, const QSize &area, int title, const QSize &smallest)
{
    constexpr int SHOWN_OF_TITLE = 90; // the least visible width of a title that the next column covers
    const int lowest = area.height() - qMin(smallest.height(), area.height() / 2); // the lowest top edge
    const int rows = qMax(1, lowest / title + 1);
    const int columns = (count + rows - 1) / rows;
    const int columnStep = qMax(SHOWN_OF_TITLE, (area.width() - smallest.width()) / qMax(1, columns));
    const int deepest = (qMin(count, rows) - 1) * title;
    const int farthest = columns > 1 ? (columns - 1) * columnStep : deepest;
    const QSize size = (area * 3 / 4).boundedTo(area - QSize(farthest, deepest)).expandedTo(smallest.boundedTo(area));
    QList<QRect> places;
    for (int i = 0; i < count; ++i) {
        const int down = i % rows * title;
        places.append(QRect(QPoint(columns > 1 ? i / rows * columnStep : down, down), size));
    }
    return places;
}
