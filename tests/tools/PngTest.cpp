#include "SamplePictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

using testing::HasSubstr;

namespace
{

constexpr int width = 13;
constexpr int height = 11;

/// A sample of `depth` bits for a place, different for each channel.
int SampleAt(int x, int y, int channel, int depth)
{
    const unsigned mixed = static_cast<unsigned>(x * 7919 + y * 104729 + channel * 15485863 + 12345) * 2654435761U;
    return static_cast<int>((mixed >> 8) & ((1U << depth) - 1));
}

/// The same on the scale of 0 to 255, the nearest value.
int To8(int sample, int depth)
{
    const int max = (1 << depth) - 1;
    return (sample * 255 + max / 2) / max;
}

std::vector<ByteVector> Rows(int channels, int depth, const std::function<int(int x, int y, int channel)> &sample)
{
    std::vector<ByteVector> rows;
    for (int y = 0; y < height; ++y) {
        ByteVector row(static_cast<std::size_t>((width * channels * depth + 7) / 8), 0);
        for (int number = 0; number < width * channels; ++number) {
            const int value = sample(number / channels, y, number % channels);
            for (int bit = 0; bit < depth; ++bit)
                if ((value >> (depth - 1 - bit) & 1) != 0) {
                    const int at = number * depth + bit;
                    row[static_cast<std::size_t>(at / 8)] |= static_cast<std::uint8_t>(128 >> (at % 8));
                }
        }
        rows.push_back(row);
    }
    return rows;
}

/// The device's pixel that a place must become.
Pixel Wanted(const PngRecipe &recipe, int channels, int x, int y)
{
    if (recipe.type == PNG_COLOR_TYPE_PALETTE)
        return recipe.palette[static_cast<std::size_t>(SampleAt(x, y, 0, recipe.depth))];
    const auto value = [&](int channel) { return To8(SampleAt(x, y, channel, recipe.depth), recipe.depth); };
    const bool isGrey = channels < 3;
    const int alpha = channels == 2 || channels == 4 ? value(channels - 1) : 255;
    return {value(0), value(isGrey ? 0 : 1), value(isGrey ? 0 : 2), alpha};
}

int ChannelsOf(int type)
{
    return type == PNG_COLOR_TYPE_RGB          ? 3
           : type == PNG_COLOR_TYPE_RGB_ALPHA  ? 4
           : type == PNG_COLOR_TYPE_GRAY_ALPHA ? 2
                                               : 1;
}

PngRecipe Recipe(int type, int depth, bool isInterlaced)
{
    PngRecipe recipe{.width = width, .height = height, .type = type, .depth = depth, .isInterlaced = isInterlaced};
    const int channels = ChannelsOf(type);
    recipe.rows = Rows(channels, depth, [depth](int x, int y, int channel) { return SampleAt(x, y, channel, depth); });
    for (int entry = 0; type == PNG_COLOR_TYPE_PALETTE && entry < 1 << depth; ++entry)
        recipe.palette.push_back(Motley(entry, entry / 3));
    return recipe;
}

struct Kind
{
    int type, depth;
};

} // namespace

TEST(PngReader, EveryColourTypeAndDepthComesBackAsDrawnStraightAndInterlaced)
{
    for (const Kind kind : {Kind{PNG_COLOR_TYPE_GRAY, 1},
                            {PNG_COLOR_TYPE_GRAY, 2},
                            {PNG_COLOR_TYPE_GRAY, 4},
                            {PNG_COLOR_TYPE_GRAY, 8},
                            {PNG_COLOR_TYPE_GRAY, 16},
                            {PNG_COLOR_TYPE_PALETTE, 1},
                            {PNG_COLOR_TYPE_PALETTE, 2},
                            {PNG_COLOR_TYPE_PALETTE, 4},
                            {PNG_COLOR_TYPE_PALETTE, 8},
                            {PNG_COLOR_TYPE_RGB, 8},
                            {PNG_COLOR_TYPE_RGB, 16},
                            {PNG_COLOR_TYPE_GRAY_ALPHA, 8},
                            {PNG_COLOR_TYPE_GRAY_ALPHA, 16},
                            {PNG_COLOR_TYPE_RGB_ALPHA, 8},
                            {PNG_COLOR_TYPE_RGB_ALPHA, 16}}) {
        for (const bool isInterlaced : {false, true}) {
            SCOPED_TRACE(testing::Message()
                         << "type " << kind.type << " depth " << kind.depth << " interlaced " << isInterlaced);
            const PngRecipe recipe = Recipe(kind.type, kind.depth, isInterlaced);
            const DevicePicture picture = Convert(MakePng(recipe));
            ASSERT_EQ(picture.width, static_cast<std::uint32_t>(width));
            ASSERT_EQ(picture.height, static_cast<std::uint32_t>(height));
            EXPECT_EQ(picture.hasAlpha, (kind.type & PNG_COLOR_MASK_ALPHA) != 0);
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x) {
                    const Pixel wanted = Wanted(recipe, ChannelsOf(kind.type), x, y);
                    ASSERT_EQ(picture.At(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)),
                              picture.hasAlpha ? wanted : As565(wanted))
                        << x << ", " << y;
                }
        }
    }
}

TEST(PngReader, PaletteEntriesBearTheirOwnAlpha)
{
    PngRecipe recipe = Recipe(PNG_COLOR_TYPE_PALETTE, 2, false);
    recipe.hasTransparency = true;
    recipe.palette[1].alpha = 0;
    recipe.palette[2].alpha = 77;
    const DevicePicture picture = Convert(MakePng(recipe));
    ASSERT_TRUE(picture.hasAlpha);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(picture.At(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)),
                      Wanted(recipe, 1, x, y));
}

TEST(PngReader, TheTransparentColourIsComparedWithAllOfItsSixteenBits)
{
    PngRecipe recipe = Recipe(PNG_COLOR_TYPE_RGB, 16, false);
    // Two colours that are the same once they have 8 bits; only the first is transparent.
    recipe.rows = Rows(3, 16, [](int x, int, int) { return x % 2 == 0 ? 0x8080 : 0x8081; });
    recipe.hasTransparency = true;
    recipe.transparent = {0x8080, 0x8080, 0x8080};
    const DevicePicture picture = Convert(MakePng(recipe));
    ASSERT_TRUE(picture.hasAlpha);
    EXPECT_EQ(picture.At(0, 0), (Pixel{128, 128, 128, 0}));
    EXPECT_EQ(picture.At(1, 0), (Pixel{128, 128, 128, 255}));
}

TEST(PngReader, AnAlphaChannelWithoutATransparentPixelBecomesRgb565)
{
    for (const bool isInterlaced : {false, true}) {
        PngRecipe recipe = Recipe(PNG_COLOR_TYPE_RGB_ALPHA, 8, isInterlaced);
        recipe.rows =
            Rows(4, 8, [](int x, int y, int channel) { return channel == 3 ? 255 : SampleAt(x, y, channel, 8); });
        const DevicePicture picture = Convert(MakePng(recipe));
        ASSERT_FALSE(picture.hasAlpha);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                ASSERT_EQ(picture.At(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)),
                          As565({SampleAt(x, y, 0, 8), SampleAt(x, y, 1, 8), SampleAt(x, y, 2, 8)}));
    }
}

TEST(PngReader, PixelsMayBeSpreadOverManySmallChunks)
{
    PngRecipe recipe = Recipe(PNG_COLOR_TYPE_RGB, 8, false);
    recipe.chunkSize = 16;
    EXPECT_EQ(Convert(MakePng(recipe)).pixels, Convert(MakePng(Recipe(PNG_COLOR_TYPE_RGB, 8, false))).pixels);
}

TEST(PngReader, ALargePictureIsReadRowByRow)
{
    constexpr int large = 2500; // 18.75 MB of pixels
    PngRecipe recipe{.width = large, .height = large, .type = PNG_COLOR_TYPE_RGB};
    for (int y = 0; y < large; ++y)
        recipe.rows.emplace_back(large * 3, static_cast<std::uint8_t>(y));
    const DevicePicture picture = Convert(MakePng(recipe));
    ASSERT_EQ(picture.height, static_cast<std::uint32_t>(large));
    for (std::uint32_t y = 0; y < large; y += 83)
        ASSERT_EQ(picture.At(large - 1, y),
                  As565({static_cast<int>(y % 256), static_cast<int>(y % 256), static_cast<int>(y % 256)}));
}

TEST(PngReader, AWrongChecksumOfThePixelsIsRefused)
{
    const ByteVector whole = MakePng(Recipe(PNG_COLOR_TYPE_RGB, 8, false));
    for (const std::size_t fromTheEnd :
         {12 + 1, 12 + 4 + 1, 12 + 4 + 4 + 20}) { // of the chunk, of the data, the data itself
        ByteVector broken = whole;
        broken[broken.size() - fromTheEnd] ^= 1;
        EXPECT_THAT(ExpectRefused(broken), HasSubstr("broken png"));
    }
}

TEST(PngReader, SizesAreRefusedBeforeAnyPixelIsRead)
{
    ByteVector png = MakePng(Recipe(PNG_COLOR_TYPE_GRAY, 8, false));
    const auto withSize = [&](std::uint32_t columns, std::uint32_t rows) {
        ByteVector changed = png;
        for (unsigned byte = 0; byte < 4; ++byte) {
            changed[16 + byte] = static_cast<std::uint8_t>(columns >> (24 - 8 * byte));
            changed[20 + byte] = static_cast<std::uint8_t>(rows >> (24 - 8 * byte));
        }
        return changed;
    };
    EXPECT_THAT(ExpectRefused(withSize(0, 5)), HasSubstr("picture of 0 x 5 pixels, wanted at least 1 x 1"));
    EXPECT_THAT(ExpectRefused(withSize(8001, 8000)),
                HasSubstr("picture of 8001 x 8000 pixels, wanted at most 64000000"));
    EXPECT_THAT(ExpectRefused(withSize(0x7FFFFFFF, 0x7FFFFFFF)), HasSubstr("wanted at most 64000000"));
}
