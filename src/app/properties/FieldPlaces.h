// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <optional>
#include <vector>

/// Where the label of a field and its text box are; nothing when there is no room.
struct FieldPlace
{
    std::optional<QRect> label;
    std::optional<QRect> text;
    int right = 0; ///< edge of the text box, outside of it, whether that has room or not
};

/// The places of the fields of an editor side by side in the rectangle of a value, given the widths of the labels'
/// texts and of the text "ABCD", which says how wide a text box is.
[[nodiscard]] std::vector<FieldPlace> PlacesOfFields(const QRect &rect, const std::vector<int> &labelWidths,
                                                     int textWidth);

/// The place of a colour swatch behind a field whose text box ends at `fieldRight`; nothing when there is no room.
[[nodiscard]] std::optional<QRect> PlaceOfSwatch(const QRect &rect, int fieldRight);
