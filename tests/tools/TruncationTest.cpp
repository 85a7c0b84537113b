#include "SamplePictures.h"

#include <gtest/gtest.h>
#include <png.h>

namespace
{

/// A small picture of each kind, each reader and each of its ways represented.
std::vector<std::pair<std::string, ByteVector>> SmallPictures()
{
    const auto grey = [](int x, int y) { return ByteVector{static_cast<std::uint8_t>(x * 30 + y * 5)}; };
    const auto index = [](int x, int y) { return (x + y) % 2; };
    const std::vector<Pixel> palette{{10, 20, 30}, {200, 100, 50}};
    const std::vector<ByteVector> rows(3, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    const GifFrame frame{.width = 4, .height = 3, .index = index};
    ByteVector interlacedPng =
        MakePng({.width = 3, .height = 3, .type = PNG_COLOR_TYPE_RGB_ALPHA, .isInterlaced = true, .rows = rows});
    return {
        {"png", MakePng({.width = 4, .height = 3, .type = PNG_COLOR_TYPE_RGB, .rows = rows, .chunkSize = 8})},
        {"interlaced png", interlacedPng},
        {"jpg", MakeJpeg({.width = 8, .height = 8, .components = 1}, grey)},
        {"progressive jpg", MakeJpeg({.width = 8, .height = 8, .components = 1, .isProgressive = true}, grey)},
        {"gif", MakeGif(4, 3, palette, {frame})},
        {"animated gif", MakeGif(4, 3, palette, {frame, frame})},
        {"1-bit bmp",
         MakeBmp({.width = 3, .height = 2, .bits = 1, .palette = palette, .data = {1, 2, 3, 4, 5, 6, 7, 8}})},
        {"24-bit bmp", MakeBmp({.width = 1, .height = 2, .data = {1, 2, 3, 4, 5, 6, 7, 8}})},
        {"bmp with masks",
         MakeBmp({.width = 1, .height = 1, .bits = 16, .compression = 3, .masks = {1, 2, 4}, .data = {1, 2, 3, 4}})},
        {"bmp with runs", MakeBmp({.width = 3,
                                   .height = 2,
                                   .bits = 8,
                                   .compression = 1,
                                   .palette = palette,
                                   .data = {3, 1, 0, 0, 0, 3, 1, 0, 1, 0, 0, 0, 0, 1}})},
    };
}

} // namespace

TEST(Truncation, EveryCutOfEveryKindIsRefusedAndLeavesNoTarget)
{
    for (const auto &[name, whole] : SmallPictures()) {
        Convert(whole);
        for (std::size_t size = 0; size < whole.size(); ++size) {
            SCOPED_TRACE(testing::Message() << name << " cut to " << size << " of " << whole.size());
            ExpectRefused(ByteVector(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
            if (testing::Test::HasFailure())
                return;
        }
    }
}
