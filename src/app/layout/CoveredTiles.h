// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <vector>

/// Records which parts of an area are covered by rectangles and so need no painting. The area is divided into small
/// tiles; a tile counts as covered only if a single rectangle covers all of it.
class CoveredTiles
{
public:
    explicit CoveredTiles(const QRect &wholeArea);

    /// Marks a rectangle as covered. The part of it outside of the area is ignored.
    void Cover(const QRect &rect);
    /// Returns whether all of a rectangle is covered, ignoring the part outside of the area. Returns false if that is
    /// uncertain, and for a rectangle outside of the area.
    [[nodiscard]] bool HasCovered(const QRect &rect) const;

private:
    /// The bits in word `word` of a row for the tiles from `first` up to, but not including, `end`.
    [[nodiscard]] static quint64 Bits(int word, int first, int end);

    QRect area;
    int wordsOfRow;
    std::vector<quint64> tiles; // one bit per tile, row by row
};
