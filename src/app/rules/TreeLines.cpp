// SPDX-License-Identifier: MIT
#include "TreeLines.h"

QList<QLine> TreeLines(const QRect &part, int indentation, Qt::LayoutDirection direction, const TreeLinesRow &row)
{
    constexpr int SIGN = 7; // half the width of the sign
    QList<QLine> lines;
    const auto add = [&](int x1, int y1, int x2, int y2) {
        const int ends = part.left() + part.right();
        lines.append(direction == Qt::RightToLeft ? QLine(ends - x1, y1, ends - x2, y2) : QLine(x1, y1, x2, y2));
    };
    const int gap = row.hasChildren ? SIGN : 0;
    const int y = part.center().y();
    int x = part.right() + 1 - indentation / 2;
    add(x + gap, y, part.right(), y);
    if (!row.isTop)
        add(x, part.top(), x, y - gap);
    if (row.goesOn.value(0))
        add(x, y + gap, x, part.bottom());
    for (qsizetype level = 1; level < row.goesOn.size(); ++level) {
        x -= indentation;
        if (row.goesOn[level])
            add(x, part.top(), x, part.bottom());
    }
    return lines;
}
