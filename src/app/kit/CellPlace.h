// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <optional>

/// The rectangle of a control that is placed over a cell of a list: the cell's rectangle, cut at the right edge of
/// `client`, and `growth` pixels taller at the top and at the bottom. `client` is the visible area of the list below
/// its header. Nothing if too little of the cell is visible: all of it is to the left or the right of the client area,
/// or its top or bottom is outside of it.
[[nodiscard]] std::optional<QRect> PlaceOverCell(const QRect &cell, const QRect &client, int growth);

/// The rectangle of a button that is placed over the end of a cell: the right half of a cell narrower than 101 pixels,
/// otherwise the last 50 pixels. It is cut as by PlaceOverCell, and 2 pixels taller at the top and at the bottom.
/// Nothing if fewer than 10 pixels would be left.
[[nodiscard]] std::optional<QRect> PlaceAtCellEnd(const QRect &cell, const QRect &client);
