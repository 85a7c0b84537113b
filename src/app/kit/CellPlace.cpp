// SPDX-License-Identifier: MIT
#include "CellPlace.h"

std::optional<QRect> PlaceOverCell(const QRect &cell, const QRect &client, int growth)
{
    if (cell.isEmpty() || cell.left() > client.right() || cell.right() < client.left() || cell.top() < client.top() ||
        cell.bottom() > client.bottom())
        return std::nullopt;
    QRect place = cell;
    place.setRight(qMin(cell.right(), client.right()));
    return place.adjusted(0, -growth, 0, growth);
}

std::optional<QRect> PlaceAtCellEnd(const QRect &cell, const QRect &client)
{
    constexpr int WIDE = 101; // pixels
    constexpr int END = 50;
    constexpr int NARROWEST = 10;
    constexpr int GROWTH = 2;
    auto place = PlaceOverCell(cell, client, GROWTH);
    if (!place)
        return std::nullopt;
    const int width = place->width() < WIDE ? place->width() - place->width() / 2 : END;
    place->setLeft(place->right() - width + 1);
    return width < NARROWEST ? std::nullopt : place;
}
