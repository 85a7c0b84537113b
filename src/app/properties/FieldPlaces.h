// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <optional>
#include <vector>

/// The places of the label of a field and its text box; nothing if there is no room.
struct FieldPlace
{
    std::optional<QRect> label;
    std::optional<QRect> text;
    int right = 0; ///< right edge of the text box, outside of it, even if there is no room for the text box
};

/// The places of the fields of an editor side by side in the rectangle of a value, given the widths of the labels'
/// texts and of the text "ABCD", which determines the width of a text box.
[[nodiscard]] std::vector<FieldPlace> PlacesOfFields(const QRect &rect, const std::vector<int> &labelWidths,
                                                     int textWidth);

/// The place of a colour swatch after a field whose text box ends at `fieldRight`; nothing if there is no room.
[[nodiscard]] std::optional<QRect> PlaceOfSwatch(const QRect &rect, int fieldRight);
