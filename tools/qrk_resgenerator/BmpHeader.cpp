// SPDX-License-Identifier: MIT
#include "BmpHeader.h"

#include "PictureBytes.h"

#include <algorithm>
#include <bit>

// | offset | size | field       | 12-byte header (OS/2) | longer headers                             |
// |-------:|-----:|-------------|-----------------------|--------------------------------------------|
// |      0 |    2 | "BM"        |                       |                                            |
// |     10 |    4 | pixel offset|                       |                                            |
// |     14 |    4 | header size |                       |                                            |
// |     18 |      | width       | 2 bytes, unsigned     | 4 bytes, signed                            |
// |        |      | height      | 20: 2 bytes, unsigned | 22: 4 bytes, signed; negative is top-down  |
// |        |      | bits a pixel| 24: 2 bytes           | 28: 2 bytes                                |
// |     30 |    4 | compression |                       | from a size of 20 on                       |
// |     34 |    4 | pixel bytes |                       | from a size of 24 on; of runs              |
// |     46 |    4 | colours     |                       | from a size of 36 on; 0: all               |
// |     54 |   16 | masks       |                       | red, green, blue, alpha; see ReadMasks     |

namespace
{

constexpr std::uint64_t infoAt = 14; // after the file header
constexpr std::uint32_t coreSize = 12;
constexpr std::uint32_t windowsSize = 40;

enum Compression : std::uint32_t
{
    Plain = 0,
    RunLength8 = 1,
    RunLength4 = 2,
    Masks = 3,
    MasksWithAlpha = 6,
};

/// The fields with offsets and sizes; only used while the header is read.
struct Layout
{
    std::uint32_t infoSize = 0;
    std::uint32_t pixelsAt = 0;
    std::uint32_t compression = Plain;
    std::uint32_t pixelBytes = 0;
    std::uint32_t colours = 0;
    std::uint64_t paletteAt = 0;
};

Outcome EndsTooSoon(const PictureBytes &file, const char *part)
{
    return Outcome::Failed("broken bmp: the file has %llu bytes and ends before its %s",
                           static_cast<unsigned long long>(file.Size()), part);
}

Outcome ReadSizes(const PictureBytes &file, Layout &layout, BmpHeader &header)
{
    const auto pixelsAt = file.U32(10);
    const auto infoSize = file.U32(infoAt);
    if (!pixelsAt || !infoSize || !file.Slice(infoAt, *infoSize))
        return EndsTooSoon(file, "pixels");
    layout.infoSize = *infoSize;
    layout.pixelsAt = *pixelsAt;
    layout.paletteAt = infoAt + *infoSize;
    if (*infoSize == coreSize) {
        header.width = *file.U16(infoAt + 4);
        header.height = *file.U16(infoAt + 6);
        header.bitsPerPixel = *file.U16(infoAt + 10);
        return Outcome::Done();
    }
    const bool isOs2 = *infoSize >= 16 && *infoSize <= 64;
    if (!isOs2 && *infoSize != 108 && *infoSize != 124)
        return Outcome::Failed("bmp with a header of %u bytes, expected 12, 16 to 64, 108 or 124", *infoSize);
    const auto width = static_cast<std::int32_t>(*file.U32(infoAt + 4));
    const auto height = static_cast<std::int32_t>(*file.U32(infoAt + 8));
    if (width < 0)
        return Outcome::Failed("broken bmp: %d pixels wide, expected at least 1", width);
    header.width = static_cast<std::uint64_t>(width);
    header.isTopDown = height < 0;
    header.height = static_cast<std::uint64_t>(header.isTopDown ? -std::int64_t{height} : height);
    header.bitsPerPixel = *file.U16(infoAt + 14);
    if (*infoSize >= 20)
        layout.compression = *file.U32(infoAt + 16);
    if (*infoSize >= 24)
        layout.pixelBytes = *file.U32(infoAt + 20);
    if (*infoSize >= 36)
        layout.colours = *file.U32(infoAt + 32);
    return Outcome::Done();
}

Outcome ChooseCoding(const Layout &layout, BmpHeader &header)
{
    const unsigned bits = header.bitsPerPixel;
    // In OS/2's long header, numbers of 3 and above have other meanings.
    const bool hasMasks =
        (layout.compression == Masks || layout.compression == MasksWithAlpha) &&
        (layout.infoSize == windowsSize || layout.infoSize == 52 || layout.infoSize == 56 || layout.infoSize > 64);
    if (layout.compression == RunLength8 && bits == 8)
        header.coding = BmpCoding::Rle8;
    else if (layout.compression == RunLength4 && bits == 4)
        header.coding = BmpCoding::Rle4;
    else if (layout.compression == Plain && (bits == 1 || bits == 4 || bits == 8))
        header.coding = BmpCoding::Indexed;
    else if (layout.compression == Plain && bits == 24)
        header.coding = BmpCoding::Bgr;
    else if ((layout.compression == Plain || hasMasks) && (bits == 16 || bits == 32))
        header.coding = BmpCoding::Bitfields;
    else
        return Outcome::Failed("bmp with %u bits per pixel and compression %u, expected 1, 4, 8, 16, 24 or 32 bits, "
                               "uncompressed, run-length encoded or with bit masks",
                               bits, layout.compression);
    return Outcome::Done();
}

bool SetChannel(std::uint32_t mask, BmpChannel &channel)
{
    channel.mask = mask;
    channel.shift = mask != 0 ? static_cast<unsigned>(std::countr_zero(mask)) : 0;
    channel.max = mask >> channel.shift;
    return (std::uint64_t{channel.max} & (std::uint64_t{channel.max} + 1)) == 0; // one run of bits
}

/// Reads the masks, which follow a header of 40 bytes and are at the same place within a longer one.
Outcome ReadMasks(const PictureBytes &file, Layout &layout, BmpHeader &header)
{
    std::uint32_t masks[4] = {0x7C00, 0x03E0, 0x001F, 0};
    if (header.bitsPerPixel == 32) {
        masks[0] = 0xFF0000;
        masks[1] = 0xFF00;
        masks[2] = 0xFF;
    }
    if (layout.compression != Plain) {
        const bool hasAlpha = layout.compression == MasksWithAlpha || layout.infoSize >= 56;
        const unsigned count = hasAlpha ? 4 : 3;
        for (unsigned number = 0; number < count; ++number) {
            const auto mask = file.U32(infoAt + windowsSize + 4 * number);
            if (!mask)
                return EndsTooSoon(file, "bit masks");
            masks[number] = *mask;
        }
        layout.paletteAt = std::max(layout.paletteAt, infoAt + windowsSize + 4 * count);
    }
    if (!SetChannel(masks[0], header.red) || !SetChannel(masks[1], header.green) ||
        !SetChannel(masks[2], header.blue) || !SetChannel(masks[3], header.alpha))
        return Outcome::Failed("broken bmp: bit masks %x, %x, %x, %x, expected one run of bits in each", masks[0],
                               masks[1], masks[2], masks[3]);
    return Outcome::Done();
}

/// True if all pixels fit into the file from byte `at` on.
bool HasRoomForPixels(const PictureBytes &file, const Layout &layout, const BmpHeader &header, std::uint64_t at)
{
    if (at > file.Size())
        return false;
    const std::uint64_t room = file.Size() - at;
    if (header.HasRuns())
        return layout.pixelBytes <= room;
    const std::uint64_t rowSize = header.RowSize();
    return rowSize == 0 || header.height <= room / rowSize;
}

/// If the palette ends after the first pixel, either it has fewer colours than the header says, or the offset of the
/// pixels is wrong. The offset counts as wrong if the file is long enough for the whole palette and the pixels after
/// it.
Outcome ReadPalette(const PictureBytes &file, const Layout &layout, BmpHeader &header)
{
    const bool isIndexed = header.bitsPerPixel <= 8;
    const std::uint64_t all = isIndexed ? 1U << header.bitsPerPixel : 0;
    const std::uint64_t entrySize = layout.infoSize == coreSize ? 3 : 4;
    std::uint64_t wanted = layout.colours != 0 ? layout.colours : all;
    if (isIndexed)
        wanted = std::min(wanted, all);
    const std::uint64_t end = layout.paletteAt + wanted * entrySize;
    if (layout.pixelsAt < end && HasRoomForPixels(file, layout, header, end))
        return Outcome::Failed("broken bmp: pixels at byte %u, within the palette of %llu colours, expected them at "
                               "byte %llu, where it ends",
                               layout.pixelsAt, static_cast<unsigned long long>(wanted),
                               static_cast<unsigned long long>(end));
    if (!isIndexed)
        return Outcome::Done();
    const std::uint64_t count = std::min(wanted, (layout.pixelsAt - layout.paletteAt) / entrySize);
    const auto entries = file.Slice(layout.paletteAt, count * entrySize);
    if (!entries)
        return EndsTooSoon(file, "palette");
    for (std::size_t entry = 0; entry < 256; ++entry) {
        for (std::size_t part = 0; part < 3 && entry < count; ++part)
            header.palette[entry][part] = (*entries)[entry * entrySize + part];
        header.palette[entry][3] = 0xFF;
    }
    header.colours = static_cast<unsigned>(count);
    header.coloursWanted = static_cast<unsigned>(wanted);
    return Outcome::Done();
}

} // namespace

Outcome ReadBmpHeader(Bytes bytes, BmpHeader &header)
{
    const PictureBytes file(bytes);
    Layout layout;
    if (const Outcome outcome = ReadSizes(file, layout, header); outcome.HasFailed())
        return outcome;
    if (const Outcome outcome = ChooseCoding(layout, header); outcome.HasFailed())
        return outcome;
    if (header.coding == BmpCoding::Bitfields)
        if (const Outcome outcome = ReadMasks(file, layout, header); outcome.HasFailed())
            return outcome;
    if (layout.pixelsAt < layout.paletteAt)
        return Outcome::Failed("broken bmp: pixels at byte %u, expected them after the headers of %llu bytes",
                               layout.pixelsAt, static_cast<unsigned long long>(layout.paletteAt));
    if (const Outcome outcome = ReadPalette(file, layout, header); outcome.HasFailed())
        return outcome;
    const auto pixels =
        file.Slice(layout.pixelsAt, bytes.size() - std::min<std::uint64_t>(layout.pixelsAt, bytes.size()));
    if (!pixels)
        return EndsTooSoon(file, "pixels");
    header.pixels = *pixels;
    return Outcome::Done();
}
