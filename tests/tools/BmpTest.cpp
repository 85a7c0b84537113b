#include "SamplePictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace
{

std::vector<Pixel> Palette(int size)
{
    std::vector<Pixel> palette;
    for (int entry = 0; entry < size; ++entry)
        palette.push_back(Motley(entry, 2 * entry));
    return palette;
}

/// Rows of `values` with `bits` bits each, the upper ones first, filled up to 4 bytes; the last row of the picture
/// first.
ByteVector PackedRows(int width, int height, int bits, bool isTopDown,
                      const std::function<std::uint32_t(int x, int y)> &value)
{
    ByteVector data;
    for (int number = 0; number < height; ++number) {
        ByteVector row(static_cast<std::size_t>((width * bits + 31) / 32 * 4), 0xEE);
        for (int x = 0; x < width; ++x) {
            const std::uint32_t found = value(x, isTopDown ? number : height - 1 - number);
            if (bits >= 8) {
                for (int byte = 0; byte < bits / 8; ++byte)
                    row[static_cast<std::size_t>(x * bits / 8 + byte)] = static_cast<std::uint8_t>(found >> (8 * byte));
            } else {
                std::uint8_t &place = row[static_cast<std::size_t>(x * bits / 8)];
                const int shift = 8 - bits - x * bits % 8;
                place = static_cast<std::uint8_t>((place & ~(((1 << bits) - 1) << shift)) | static_cast<int>(found)
                                                                                                << shift);
            }
        }
        data.insert(data.end(), row.begin(), row.end());
    }
    return data;
}

std::uint32_t AsNumber(const Pixel &pixel)
{
    return static_cast<std::uint32_t>(pixel.red << 16 | pixel.green << 8 | pixel.blue);
}

void ExpectPixels(const DevicePicture &picture, int width, int height, const Drawing &wanted)
{
    ASSERT_EQ(picture.width, static_cast<std::uint32_t>(width));
    ASSERT_EQ(picture.height, static_cast<std::uint32_t>(height));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(picture.At(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)),
                      picture.hasAlpha ? wanted(x, y) : As565(wanted(x, y)))
                << x << ", " << y;
}

/// Palette indices as text, one letter a pixel: '0' to '9', 'a' to 'f'.
void ExpectIndices(const DevicePicture &picture, const std::vector<std::string> &rows)
{
    const std::vector<Pixel> palette = Palette(16);
    ExpectPixels(picture, static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), [&](int x, int y) {
        const std::string digit(1, rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
        return palette[std::stoul(digit, nullptr, 16)];
    });
}

} // namespace

TEST(BmpReader, EveryPlainDepthComesBackAsDrawnFromTheTopAndFromTheBottom)
{
    for (const bool isTopDown : {false, true}) {
        for (const int bits : {1, 4, 8, 24, 32}) {
            SCOPED_TRACE(testing::Message() << bits << " bits, top-down " << isTopDown);
            BmpRecipe recipe{.width = 19, .height = isTopDown ? -7 : 7, .bits = bits};
            if (bits <= 8)
                recipe.palette = Palette(1 << bits);
            const auto index = [bits](int x, int y) {
                return static_cast<std::uint32_t>(x * 5 + y * 3) % (1U << bits);
            };
            // The upper byte of 32 bits means nothing.
            recipe.data = PackedRows(19, 7, bits, isTopDown, [&](int x, int y) {
                return bits <= 8 ? index(x, y) : AsNumber(Motley(x, y)) | 0x12000000;
            });
            ExpectPixels(Convert(MakeBmp(recipe)), 19, 7,
                         [&](int x, int y) { return bits <= 8 ? recipe.palette[index(x, y)] : Motley(x, y); });
        }
    }
}

TEST(BmpReader, MasksCutUpPixelsAndEachChannelIsStretchedToEightBits)
{
    BmpRecipe recipe{.width = 5, .height = 3, .bits = 16, .compression = 3, .masks = {0xF800, 0x07E0, 0x001F}};
    recipe.data =
        PackedRows(5, 3, 16, false, [](int x, int y) { return static_cast<std::uint32_t>(x * 9999 + y * 777); });
    const DevicePicture picture = Convert(MakeBmp(recipe));
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x) {
            const int value = (x * 9999 + y * 777) & 0xFFFF;
            EXPECT_EQ(picture.At(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y)),
                      (Pixel{value >> 11, value >> 5 & 63, value & 31}));
        }

    recipe = {.width = 3, .height = 2, .bits = 16}; // 5 bits each without masks
    recipe.data = PackedRows(3, 2, 16, false, [](int x, int) { return x == 0 ? 0xFC00U : x == 1 ? 0x03E0U : 0x0011U; });
    ExpectPixels(Convert(MakeBmp(recipe)), 3, 2, [](int x, int) {
        return x == 0 ? Pixel{255, 0, 0} : x == 1 ? Pixel{0, 255, 0} : Pixel{0, 0, 140};
    });

    recipe = {.width = 4, .height = 2, .bits = 32, .compression = 6, .masks = {0xFF, 0xFF00, 0xFF0000, 0xFF000000}};
    recipe.data = PackedRows(4, 2, 32, false, [](int x, int y) {
        const Pixel pixel = Motley(x, y);
        return static_cast<std::uint32_t>(pixel.red | pixel.green << 8 | pixel.blue << 16) |
               static_cast<std::uint32_t>(x * 60) << 24;
    });
    ExpectPixels(Convert(MakeBmp(recipe)), 4, 2, [](int x, int y) {
        Pixel pixel = Motley(x, y);
        pixel.alpha = x * 60;
        return pixel;
    });
}

TEST(BmpReader, TheShortHeaderOfOs2HasAPaletteOfThreeByteColours)
{
    ByteVector bmp{'B', 'M'};
    AppendU32(bmp, 26 + 6 + 8);
    AppendU32(bmp, 0);
    AppendU32(bmp, 26 + 6);
    AppendU32(bmp, 12);
    for (const std::uint32_t value : {3U, 2U, 1U, 1U}) // width, height, planes, bits
        AppendU16(bmp, value);
    bmp.insert(bmp.end(), {10, 20, 30, 200, 210, 220});
    bmp.insert(bmp.end(), {0x40, 0, 0, 0, 0xA0, 0, 0, 0});
    ExpectPixels(Convert(bmp), 3, 2, [](int x, int y) {
        return (x + y) % 2 == 0 ? Pixel{220, 210, 200} : Pixel{30, 20, 10};
    });
}

TEST(BmpReader, RunsOfHalfBytesMayJumpAndEndEarly)
{
    BmpRecipe recipe{.width = 8, .height = 5, .bits = 4, .compression = 2, .palette = Palette(16)};
    recipe.data = {5, 0x12, 3,    0x44, 0,    0,                 // 12121, 444
                   0, 5,    0x34, 0x56, 0x70, 0, 0, 0,           // five as they stand, the rest left out
                   1, 0x90, 0,    2,    2,    2, 2, 0xAB, 0, 1}; // one, then two to the right and two rows up
    ExpectIndices(Convert(MakeBmp(recipe)), {"000ab000", "00000000", "90000000", "34567000", "12121444"});
}

TEST(BmpReader, RunsOfBytesMayGoDownwardsAndLeaveTheRow)
{
    BmpRecipe recipe{.width = 5, .height = -3, .bits = 8, .compression = 1, .palette = Palette(16)};
    recipe.data = {8, 6, 0,   0, // three more than the row has, as some writers fill up rows
                   0, 3, 1,   2, 3, 0, 0, 4,
                   9, 8, 7,   6, 0, 0,        // an odd number with its filler, then more than there is room for
                   0, 2, 200, 0, 3, 5, 0, 1}; // a jump out of the row
    ExpectIndices(Convert(MakeBmp(recipe)), {"66666", "12398", "00000"});
}

TEST(BmpReader, APaletteShorterThanItsIndicesIsFilledUpWithBlack)
{
    BmpRecipe recipe{.width = 2, .height = 1, .bits = 8, .palette = Palette(2), .data = {1, 200, 0, 0}};
    ExpectPixels(Convert(MakeBmp(recipe)), 2, 1, [](int x, int) { return x == 0 ? Palette(2)[1] : Pixel{}; });
}

TEST(BmpReader, ImpossibleHeadersAreRefusedWithWhatWasFound)
{
    const ByteVector row{1, 2, 3, 0};
    const auto refused = [&](const BmpRecipe &recipe) { return ExpectRefused(MakeBmp(recipe)); };
    EXPECT_THAT(refused({.width = 0, .height = 1, .data = row}), HasSubstr("picture of 0 x 1 pixels"));
    EXPECT_THAT(refused({.width = -1, .height = 1, .data = row}), HasSubstr("-1 pixels wide"));
    EXPECT_THAT(refused({.width = 1, .height = INT32_MIN, .data = row}), HasSubstr("picture of 1 x 2147483648 pixels"));
    EXPECT_THAT(refused({.width = INT32_MAX, .height = INT32_MAX, .data = row}), HasSubstr("wanted at most 64000000"));
    EXPECT_THAT(refused({.width = 1, .height = 1, .bits = 7, .data = row}),
                HasSubstr("7 bits a pixel and compression 0"));
    EXPECT_THAT(refused({.width = 1, .height = 1, .bits = 24, .compression = 4, .data = row}),
                HasSubstr("compression 4"));
    EXPECT_THAT(refused({.width = 1, .height = 1, .bits = 16, .compression = 3, .masks = {5, 8, 16}, .data = row}),
                HasSubstr("bit masks 5, 8, 10, 0"));
    ByteVector early = MakeBmp({.width = 1, .height = 1, .data = row});
    early[10] = 20;
    EXPECT_THAT(ExpectRefused(early), HasSubstr("pixels at byte 20"));
    early[14] = 13;
    EXPECT_THAT(ExpectRefused(early), HasSubstr("header of 13 bytes"));
}
