// SPDX-License-Identifier: MIT
#include "FieldPlaces.h"

#include <gtest/gtest.h>

TEST(FieldPlaces, AreSideBySideAndEndWithTheValue)
{
    const std::vector<FieldPlace> wide = PlacesOfFields({100, 40, 400, 20}, {12, 30}, 24);
    EXPECT_EQ(wide[1].label, QRect(183, 41, 40, 18));
    EXPECT_EQ(wide[1].text, QRect(225, 41, 34, 18));
    EXPECT_EQ(PlaceOfSwatch({100, 40, 400, 20}, wide[1].right), QRect(279, 41, 30, 18));
    // The widths of what is shown, or -1 where nothing is, for several widths of the value.
    const int rows[][6] = {{9, -1, -1, -1, -1, -1}, {10, 0, -1, -1, -1, -1}, {34, 22, -1, -1, -1, -1},
                           {35, 22, 1, -1, -1, -1}, {84, 22, 34, 1, -1, -1}, {180, 22, 34, 40, 34, 1}};
    const auto width = [](const std::optional<QRect> &place) { return place ? place->width() : -1; };
    for (const auto &row : rows) {
        const QRect rect(100, 40, row[0], 20);
        const std::vector<FieldPlace> places = PlacesOfFields(rect, {12, 30}, 24);
        const int widths[] = {row[0],
                              width(places[0].label),
                              width(places[0].text),
                              width(places[1].label),
                              width(places[1].text),
                              width(PlaceOfSwatch(rect, places[1].right))};
        EXPECT_TRUE(std::equal(std::begin(row), std::end(row), widths)) << row[0];
    }
}
