#include "SamplePictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace
{

std::vector<Pixel> Palette()
{
    std::vector<Pixel> palette;
    for (int entry = 0; entry < 16; ++entry)
        palette.push_back(Motley(entry, entry));
    return palette;
}

int Index(int x, int y)
{
    return (x * 5 + y * 3) % 16;
}

void ExpectFrame(const DevicePicture &picture, const std::vector<Pixel> &palette)
{
    for (std::uint32_t y = 0; y < picture.height; ++y)
        for (std::uint32_t x = 0; x < picture.width; ++x)
            ASSERT_EQ(picture.At(x, y),
                      As565(palette[static_cast<std::size_t>(Index(static_cast<int>(x), static_cast<int>(y)))]))
                << x << ", " << y;
}

} // namespace

TEST(GifReader, AFullFrameComesBackAsDrawnStraightAndInterlaced)
{
    for (const bool isInterlaced : {false, true}) {
        const DevicePicture picture = Convert(
            MakeGif(19, 17, Palette(), {{.width = 19, .height = 17, .isInterlaced = isInterlaced, .index = Index}}));
        ASSERT_EQ(picture.width, 19U);
        ASSERT_EQ(picture.height, 17U);
        ASSERT_FALSE(picture.hasAlpha);
        ExpectFrame(picture, Palette());
    }
}

TEST(GifReader, TheFramesOwnPaletteGoesBeforeTheFiles)
{
    std::vector<Pixel> own = Palette();
    std::ranges::reverse(own);
    ExpectFrame(Convert(MakeGif(8, 8, Palette(), {{.width = 8, .height = 8, .palette = own, .index = Index}})), own);
}

TEST(GifReader, OnlyTheFirstOfManyFramesCounts)
{
    const auto other = [](int, int) { return 3; };
    const DevicePicture picture = Convert(MakeGif(8, 8, Palette(),
                                                  {{.width = 8, .height = 8, .index = Index},
                                                   {.width = 8, .height = 8, .transparentIndex = 3, .index = other},
                                                   {.left = 2, .top = 2, .width = 4, .height = 4, .index = other}}));
    ExpectFrame(picture, Palette());
}

TEST(GifReader, TheTransparentColourAndWhatTheFrameLeavesFreeAreTransparentBlack)
{
    const DevicePicture picture = Convert(MakeGif(
        10, 9, Palette(), {{.left = 2, .top = 3, .width = 5, .height = 4, .transparentIndex = 7, .index = Index}}));
    ASSERT_TRUE(picture.hasAlpha);
    ASSERT_EQ(picture.width, 10U);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 10; ++x) {
            const bool isInside = x >= 2 && x < 7 && y >= 3 && y < 7;
            const int index = isInside ? Index(x - 2, y - 3) : 7;
            const Pixel wanted = index == 7 ? Pixel{0, 0, 0, 0} : Palette()[static_cast<std::size_t>(index)];
            ASSERT_EQ(picture.At(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)), wanted)
                << x << ", " << y;
        }
}

TEST(GifReader, WhatAFrameHasBeyondTheScreenIsCutOff)
{
    const DevicePicture picture = Convert(MakeGif(
        6, 5, Palette(), {{.left = 0, .top = 0, .width = 20, .height = 20, .isInterlaced = true, .index = Index}}));
    ASSERT_EQ(picture.width, 6U);
    ASSERT_EQ(picture.height, 5U);
    ExpectFrame(picture, Palette());

    const DevicePicture besides =
        Convert(MakeGif(6, 5, Palette(), {{.left = 6, .top = 5, .width = 3, .height = 3, .index = Index}}));
    EXPECT_EQ(besides.pixels, std::vector<Pixel>(30, Pixel{0, 0, 0, 0}));
}

TEST(GifReader, FilesWithoutFrameOrColoursOrWithAnImpossibleSizeAreRefused)
{
    EXPECT_THAT(ExpectRefused(MakeGif(6, 5, Palette(), {})), HasSubstr("gif without a frame"));
    EXPECT_THAT(ExpectRefused(MakeGif(65535, 65535, Palette(), {{.width = 2, .height = 2, .index = Index}})),
                HasSubstr("picture of 65535 x 65535 pixels, wanted at most 64000000"));
    EXPECT_THAT(ExpectRefused(MakeGif(0, 5, Palette(), {{.width = 2, .height = 2, .index = Index}})),
                HasSubstr("picture of 0 x 5 pixels, wanted at least 1 x 1"));
    ByteVector colourless = MakeGif(2, 2, Palette(), {{.width = 2, .height = 2, .index = Index}});
    colourless[10] &= 0x7F; // the flag of the file's palette; the palette itself goes as well
    colourless.erase(colourless.begin() + 13, colourless.begin() + 13 + 16 * 3);
    EXPECT_THAT(ExpectRefused(colourless), HasSubstr("no colour table"));
}
