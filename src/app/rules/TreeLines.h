#pragma once

#include <QLine>
#include <QList>
#include <QRect>

/// What the lines in front of a row of a tree depend on.
struct TreeLinesRow
{
    bool hasChildren = false; ///< a sign that opens and closes the row is in the way
    bool isTop = false;       ///< nothing is above it
    /// For the row, its parent, its grandparent and so on: whether a sibling follows.
    QList<bool> goesOn;
};

/// The lines from an item of a tree to what is below it, in the part of a row that is left of the icon, or
/// right of it in a right-to-left window. `indentation` is the width of a level in pixels.
[[nodiscard]] QList<QLine> TreeLines(const QRect &part, int indentation, Qt::LayoutDirection direction,
                                     const TreeLinesRow &row);
