// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <vector>

/// Which parts of an area are under rectangles without a gap, by small tiles: what is there needs no painting. A tile
/// counts when one rectangle covers it whole.
class CoveredTiles
{
public:
    explicit CoveredTiles(const QRect &wholeArea);

    /// Covers a rectangle, as far as it is in the area.
    void Cover(const QRect &rect);
    /// Says whether all of a rectangle is covered, as far as it is in the area. False where it may not be.
    [[nodiscard]] bool HasCovered(const QRect &rect) const;

private:
    /// The bits of a row's word for the tiles from `first` to before `end`.
    [[nodiscard]] static quint64 Bits(int word, int first, int end);

    QRect area;
    int wordsOfRow;
    std::vector<quint64> tiles; // a bit each, row by row
};
