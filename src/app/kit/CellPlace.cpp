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
