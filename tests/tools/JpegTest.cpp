#include "SamplePictures.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace
{

/// Areas of 8 x 8 pixels in one colour each, which a jpg keeps but for rounding.
Pixel Area(int x, int y)
{
    return Motley(x / 8, y / 8);
}

/// True if the pixel is that colour, give or take what the coding costs.
testing::AssertionResult IsNear(const Pixel &found, const Pixel &drawn)
{
    const Pixel wanted = As565(drawn);
    if (std::abs(found.red - wanted.red) <= 1 && std::abs(found.green - wanted.green) <= 1 &&
        std::abs(found.blue - wanted.blue) <= 1)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(found) << " instead of "
                                       << testing::PrintToString(wanted);
}

void ExpectAreas(const DevicePicture &picture, const std::function<Pixel(int x, int y)> &drawn)
{
    ASSERT_EQ(picture.width, 29U);
    ASSERT_EQ(picture.height, 21U);
    EXPECT_FALSE(picture.hasAlpha);
    for (int y = 0; y < 21; ++y)
        for (int x = 0; x < 29; ++x)
            ASSERT_TRUE(IsNear(picture.At(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)), drawn(x, y)))
                << x << ", " << y;
}

ByteVector Colour(int x, int y)
{
    const Pixel pixel = Area(x, y);
    return {static_cast<std::uint8_t>(pixel.red), static_cast<std::uint8_t>(pixel.green),
            static_cast<std::uint8_t>(pixel.blue)};
}

ByteVector Inks(int x, int y)
{
    const Pixel pixel = Area(x, y);
    return {static_cast<std::uint8_t>(pixel.red), static_cast<std::uint8_t>(pixel.green),
            static_cast<std::uint8_t>(pixel.blue), static_cast<std::uint8_t>(255 - (x / 8) * 50)};
}

} // namespace

TEST(JpegReader, ColourAndGreyComeBackBaselineAndProgressive)
{
    for (const bool isProgressive : {false, true}) {
        JpegRecipe recipe{.width = 29, .height = 21, .isProgressive = isProgressive};
        ExpectAreas(Convert(MakeJpeg(recipe, Colour)), Area);
        recipe.components = 1;
        ExpectAreas(Convert(MakeJpeg(recipe, [](int x, int y) { return ByteVector{Colour(x, y)[0]}; })),
                    [](int x, int y) {
                        const int grey = Area(x, y).red;
                        return Pixel{grey, grey, grey};
                    });
    }
}

TEST(JpegReader, FourInksBecomeColoursWhetherStoredInvertedOrNot)
{
    JpegRecipe recipe{.width = 29, .height = 21, .components = 4};
    const auto inverted = [](int x, int y) {
        const ByteVector inks = Inks(x, y);
        return Pixel{inks[0] * inks[3] / 255, inks[1] * inks[3] / 255, inks[2] * inks[3] / 255};
    };
    for (const bool isYcck : {false, true}) {
        recipe.isYcck = isYcck;
        ExpectAreas(Convert(MakeJpeg(recipe, Inks)), inverted);
    }
    recipe.isYcck = false;
    recipe.hasAdobeMarker = false;
    ExpectAreas(Convert(MakeJpeg(recipe, Inks)), [](int x, int y) {
        const ByteVector inks = Inks(x, y);
        const int rest = 255 - inks[3];
        return Pixel{(255 - inks[0]) * rest / 255, (255 - inks[1]) * rest / 255, (255 - inks[2]) * rest / 255};
    });
}

TEST(JpegReader, DamagedPixelsAreRefusedAndNotFilledUp)
{
    const JpegRecipe recipe{.width = 64, .height = 64, .restartEvery = 1};
    const ByteVector whole = MakeJpeg(recipe, [](int x, int y) {
        const Pixel pixel = Motley(x, y);
        return ByteVector{static_cast<std::uint8_t>(pixel.red), static_cast<std::uint8_t>(pixel.green),
                          static_cast<std::uint8_t>(pixel.blue)};
    });
    ByteVector hole = whole; // a piece in the middle is gone, the end is there
    hole.erase(hole.end() - 900, hole.end() - 500);
    EXPECT_THAT(ExpectRefused(hole), HasSubstr("broken jpg: Corrupt JPEG data"));
}

TEST(JpegReader, SizesAreRefusedBeforeAnyPixelIsRead)
{
    ByteVector jpeg = MakeJpeg({.width = 29, .height = 21}, Colour);
    // The frame's header: marker, length (2), precision (1), height (2), width (2).
    const ByteVector marker{0xFF, 0xC0};
    const auto frame = std::search(jpeg.begin(), jpeg.end(), marker.begin(), marker.end());
    ASSERT_NE(frame, jpeg.end());
    for (int byte = 5; byte < 9; ++byte)
        frame[byte] = 0x80;
    EXPECT_THAT(ExpectRefused(jpeg), HasSubstr("picture of 32896 x 32896 pixels, wanted at most 64000000"));
    frame[7] = frame[8] = 0;
    EXPECT_THAT(ExpectRefused(jpeg), HasSubstr("broken jpg"));
}

TEST(JpegReader, APictureThatAsksForThousandsOfScansIsRefused)
{
    ByteVector jpeg = MakeJpeg({.width = 16, .height = 16, .isProgressive = true}, Colour);
    // The last scan, from its marker up to the end mark, again and again.
    const ByteVector marker{0xFF, 0xDA};
    const auto scan = std::find_end(jpeg.begin(), jpeg.end(), marker.begin(), marker.end());
    const ByteVector again(scan, jpeg.end() - 2);
    for (int count = 0; count < 2000; ++count)
        jpeg.insert(jpeg.end() - 2, again.begin(), again.end());
    ExpectRefused(jpeg);
}
