#pragma once

#include <QRect>

#include <optional>

/// Where a control is laid over a cell of a list: the cell's rectangle, cut at the right edge of `client`, which is
/// what shows of the list below its header, and `growth` pixels taller at the top and at the bottom. Nothing where too
/// little of the cell is in sight: all of it is left or right of the client area, or its top or bottom is outside of
/// it.
[[nodiscard]] std::optional<QRect> PlaceOverCell(const QRect &cell, const QRect &client, int growth);

/// Where a button is laid over the end of a cell: the right half of one narrower than 101 pixels, else the last 50. Cut
/// and placed as by PlaceOverCell, and 2 pixels taller at the top and at the bottom. Nothing where fewer than 10 pixels
/// would be left.
[[nodiscard]] std::optional<QRect> PlaceAtCellEnd(const QRect &cell, const QRect &client);
