// SPDX-License-Identifier: MIT
#include "CoveredTiles.h"

namespace
{

constexpr int SIDE = 4; // the width and height of a tile, in pixels
constexpr int WORD = 64;

int Words(int pixels)
{
    return (pixels / SIDE + WORD) / WORD;
}

} // namespace

CoveredTiles::CoveredTiles(const QRect &wholeArea)
    : area(wholeArea), wordsOfRow(Words(qMax(0, area.width()))),
      tiles(size_t(wordsOfRow) * size_t(qMax(0, area.height()) / SIDE + 1))
{
}

quint64 CoveredTiles::Bits(int word, int first, int end)
{
    const int from = qBound(0, first - word * WORD, WORD);
    const int to = qBound(0, end - word * WORD, WORD);
    const auto below = [](int bit) { return bit == WORD ? ~quint64(0) : (quint64(1) << bit) - 1; };
    return to > from ? below(to) & ~below(from) : 0;
}

void CoveredTiles::Cover(const QRect &rect)
{
    const QRect inside = (rect & area).translated(-area.topLeft());
    if (inside.isEmpty())
        return;
    // A tile at the right or lower edge is covered if its part in the area is.
    const auto endOf = [](int last, int size) { return last + 1 == size ? last / SIDE + 1 : (last + 1) / SIDE; };
    const int first = (inside.left() + SIDE - 1) / SIDE;
    const int end = endOf(inside.right(), area.width());
    const int endRow = endOf(inside.bottom(), area.height());
    for (int row = (inside.top() + SIDE - 1) / SIDE; row < endRow; ++row) {
        for (int word = first / WORD; word * WORD < end; ++word)
            tiles[size_t(row * wordsOfRow + word)] |= Bits(word, first, end);
    }
}

bool CoveredTiles::HasCovered(const QRect &rect) const
{
    const QRect inside = (rect & area).translated(-area.topLeft());
    if (inside.isEmpty())
        return false;
    const int first = inside.left() / SIDE;
    const int end = inside.right() / SIDE + 1;
    for (int row = inside.top() / SIDE; row <= inside.bottom() / SIDE; ++row) {
        for (int word = first / WORD; word * WORD < end; ++word) {
            const quint64 bits = Bits(word, first, end);
            if ((tiles[size_t(row * wordsOfRow + word)] & bits) != bits)
                return false;
        }
    }
    return true;
}
