#include "FieldPlaces.h"

#include <gtest/gtest.h>

TEST(FieldPlaces, AreSideBySideAndEndWithTheValue)
{
    const std::vector<FieldPlace> wide = PlacesOfFields({100, 40, 400, 20}, {12, 30}, 24);
    EXPECT_EQ(wide[1].label, QRect(183, 41, 40, 18));
    EXPECT_EQ(wide[1].text, QRect(225, 41, 34, 18));
    EXPECT_EQ(PlaceOfSwatch({100, 40, 400, 20}, wide[1].right), QRect(279, 41, 30, 18));

    struct Row
    {
        int width;                                // of the value, whose labels and texts are as above
        int label0, text0, label1, text1, swatch; // widths; -1 where nothing is shown
    };
    // The second label begins at 83, its text at 125; the swatch at 179.
    const Row rows[] = {{9, -1, -1, -1, -1, -1}, {10, 0, -1, -1, -1, -1}, {34, 22, -1, -1, -1, -1},
                        {35, 22, 1, -1, -1, -1}, {84, 22, 34, 1, -1, -1}, {180, 22, 34, 40, 34, 1}};
    const auto width = [](const std::optional<QRect> &place) { return place ? place->width() : -1; };
    for (const Row &row : rows) {
        const QRect rect(100, 40, row.width, 20);
        const std::vector<FieldPlace> places = PlacesOfFields(rect, {12, 30}, 24);
        EXPECT_EQ(width(places[0].label), row.label0) << row.width;
        EXPECT_EQ(width(places[0].text), row.text0) << row.width;
        EXPECT_EQ(width(places[1].label), row.label1) << row.width;
        EXPECT_EQ(width(places[1].text), row.text1) << row.width;
        EXPECT_EQ(width(PlaceOfSwatch(rect, places[1].right)), row.swatch) << row.width;
    }
}
