// SPDX-License-Identifier: MIT
#pragma once

#include <QLine>
#include <QList>
#include <QRect>

/// The properties of a tree's row that its lines depend on.
struct TreeLinesRow
{
    bool hasChildren = false; ///< the row has a sign that opens and closes it, which interrupts the line
    bool isTop = false;       ///< no row is above it
    /// Whether a sibling follows: for the row, its parent, its grandparent and so on.
    QList<bool> goesOn;
};

/// The lines that connect the items of a tree, in the part of a row to the left of the icon, or to the right of it in a
/// right-to-left window. `indentation` is the width of a level in pixels.
[[nodiscard]] QList<QLine> TreeLines(const QRect &part, int indentation, Qt::LayoutDirection direction,
                                     const TreeLinesRow &row);
