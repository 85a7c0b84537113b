#pragma once

#include <QRect>

#include <optional>

/// Where a control is laid over a cell of a list: the cell's rectangle, cut at the right edge of `client`, which is
/// what shows of the list below its header, and `growth` pixels taller at the top and at the bottom. Nothing where too
/// little of the cell is in sight: all of it is left or right of the client area, or its top or bottom is outside of
/// it.
[[nodiscard]] std::optional<QRect> PlaceOverCell(const QRect &cell, const QRect &client, int growth);
