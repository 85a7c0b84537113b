// SPDX-License-Identifier: MIT
#pragma once

#include "Buffer.h"
#include "Outcome.h"

/// How the pixels of a bmp file are stored.
enum class BmpCoding
{
    Indexed,   ///< 1, 4 or 8 bits, an index into the palette
    Rle4,      ///< runs of 4-bit indices
    Rle8,      ///< runs of 8-bit indices
    Bgr,       ///< 24 bits
    Bitfields, ///< 16 or 32 bits, divided by masks
};

/// A component of a 16 or 32-bit pixel.
struct BmpChannel
{
    std::uint32_t mask = 0;
    unsigned shift = 0;
    std::uint32_t max = 0; ///< the largest value; 0 without a mask
};

/// The checked contents of a bmp file before its pixels: all sizes and offsets are valid for the file.
struct BmpHeader
{
    std::uint64_t width = 0;
    std::uint64_t height = 0;
    bool isTopDown = false;
    unsigned bitsPerPixel = 0;
    BmpCoding coding = BmpCoding::Indexed;
    BmpChannel blue, green, red, alpha; ///< of Bitfields
    std::uint8_t palette[256][4] = {};  ///< blue, green, red, 255; black where the file has none
    unsigned colours = 0;               ///< the number of palette colours before the pixels
    unsigned coloursWanted = 0;         ///< the number of palette colours according to the header
    Bytes pixels;                       ///< from the first pixel to the end of the file

    [[nodiscard]] bool HasRuns() const { return coding == BmpCoding::Rle4 || coding == BmpCoding::Rle8; }
    /// The size in bytes of a row of plain pixels in the file.
    [[nodiscard]] std::uint64_t RowSize() const { return (width * bitsPerPixel + 31) / 32 * 4; }
};

/// Reads the headers of Windows (40, 52, 56, 108 and 124 bytes) and of OS/2 (12 and 16 to 64 bytes) and the palette.
Outcome ReadBmpHeader(Bytes file, BmpHeader &header);
