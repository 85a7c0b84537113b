// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The picture format of the device; see docs/image-format.md. All numbers are little-endian.
///
/// | offset | size | field       | meaning                                       |
/// |-------:|-----:|-------------|-----------------------------------------------|
/// |      0 |    4 | magic       | "MIMG"                                        |
/// |      4 |    1 | version     | 1                                             |
/// |      5 |    1 | pixelFormat | 1: RGB565, 2: ARGB8888                        |
/// |      6 |    1 | encoding    | 0: plain; the others are reserved             |
/// |      7 |    1 | headerSize  | offset of the pixels: 24                      |
/// |      8 |    4 | width       | pixels                                        |
/// |     12 |    4 | height      | pixels                                        |
/// |     16 |    4 | stride      | bytes from row to row, a multiple of 4        |
/// |     20 |    4 | dataSize    | bytes after the header; plain: stride*height  |
namespace DeviceFormat
{

inline constexpr char magic[4] = {'M', 'I', 'M', 'G'};
inline constexpr std::uint8_t version = 1;
inline constexpr std::uint8_t encodingPlain = 0;
inline constexpr std::uint8_t headerSize = 24;

enum class PixelFormat : std::uint8_t
{
    Rgb565 = 1,
    Argb8888 = 2,
};

inline constexpr std::uint64_t maxPixels = 64'000'000;

} // namespace DeviceFormat
