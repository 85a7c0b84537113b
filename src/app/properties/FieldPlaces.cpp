// SPDX-License-Identifier: MIT
#include "FieldPlaces.h"

#include <algorithm>

namespace
{

constexpr int FIRST_START = -5; // from the left edge of the value
constexpr int BEFORE_LABEL = 15;
constexpr int BEFORE_TEXT = 2;
constexpr int BESIDE_TEXT = 10; // the difference between the width of a control and the width of its text
constexpr int SWATCH_START = 20;
constexpr int SWATCH_END = 50;

/// A rectangle whose top and bottom are one pixel inside those of the value.
QRect Inside(const QRect &rect, int left, int right)
{
    return {left, rect.top() + 1, right - left, rect.height() - 2};
}

int RightOf(const QRect &rect)
{
    return rect.left() + rect.width(); // outside; QRect::right() is the last column inside
}

} // namespace

std::vector<FieldPlace> PlacesOfFields(const QRect &rect, const std::vector<int> &labelWidths, int textWidth)
{
    const int end = RightOf(rect);
    std::vector<FieldPlace> places;
    int x = rect.left() + FIRST_START;
    for (const int width : labelWidths) {
        FieldPlace &place = places.emplace_back();
        const int label = x + BEFORE_LABEL;
        const int labelEnd = std::min(label + width + BESIDE_TEXT, end);
        if (label <= end)
            place.label = Inside(rect, label, labelEnd);
        const int text = labelEnd + BEFORE_TEXT;
        place.right = std::min(text + textWidth + BESIDE_TEXT, end);
        if (text < end)
            place.text = Inside(rect, text, place.right);
        x = place.right;
    }
    return places;
}

std::optional<QRect> PlaceOfSwatch(const QRect &rect, int fieldRight)
{
    const int end = RightOf(rect);
    const int left = fieldRight + SWATCH_START;
    if (left >= end)
        return std::nullopt;
    return Inside(rect, left, std::min(fieldRight + SWATCH_END, end));
}
