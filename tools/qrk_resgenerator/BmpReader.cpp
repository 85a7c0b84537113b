// SPDX-License-Identifier: MIT
#include "BmpHeader.h"
#include "BmpRunLength.h"
#include "Readers.h"

#include <cstring>

namespace
{

/// The row of the picture for row `number` of the file.
std::uint32_t PlaceOf(const BmpHeader &header, const Picture &picture, std::uint32_t number)
{
    return header.isTopDown ? number : picture.Height() - 1 - number;
}

/// Looks up the colours of a row. Fails for a colour whose place in the palette overlaps the pixels; a colour beyond
/// the palette is black.
class Colours
{
public:
    explicit Colours(const BmpHeader &header) : m_header(header) {}

    void Put(unsigned index, std::uint8_t *to)
    {
        if (index >= m_header.colours && index < m_header.coloursWanted)
            m_missing = index;
        std::memcpy(to, m_header.palette[index], 4);
    }

    [[nodiscard]] Outcome Check() const
    {
        if (m_missing == none)
            return Outcome::Done();
        return Outcome::Failed("broken bmp: a pixel has colour %u, but the palette has only %u colours before the "
                               "pixels begin, expected %u",
                               m_missing, m_header.colours, m_header.coloursWanted);
    }

private:
    static constexpr unsigned none = 256;

    const BmpHeader &m_header;
    unsigned m_missing = none;
};

void UnpackIndexed(const BmpHeader &header, const std::uint8_t *from, std::uint8_t *to, std::uint32_t width,
                   Colours &colours)
{
    const unsigned bits = header.bitsPerPixel;
    const unsigned perByte = 8 / bits;
    const unsigned mask = (1U << bits) - 1;
    for (std::uint32_t x = 0; x < width; ++x) {
        const unsigned shift = 8 - bits * (x % perByte + 1);
        colours.Put(from[x / perByte] >> shift & mask, to + std::size_t{x} * 4);
    }
}

void UnpackBgr(const std::uint8_t *from, std::uint8_t *to, std::uint32_t width)
{
    for (std::uint32_t x = 0; x < width; ++x, from += 3, to += 4) {
        to[0] = from[0];
        to[1] = from[1];
        to[2] = from[2];
        to[3] = 0xFF;
    }
}

/// The channel's value scaled to 0 to 255 and rounded to the nearest.
std::uint8_t ChannelOf(std::uint32_t pixel, const BmpChannel &channel)
{
    const std::uint64_t value = (pixel & channel.mask) >> channel.shift;
    return static_cast<std::uint8_t>(channel.max == 0 ? 0 : (value * 255 + channel.max / 2) / channel.max);
}

void UnpackBitfields(const BmpHeader &header, const std::uint8_t *from, std::uint8_t *to, std::uint32_t width)
{
    const unsigned size = header.bitsPerPixel / 8;
    for (std::uint32_t x = 0; x < width; ++x, from += size, to += 4) {
        std::uint32_t pixel = 0;
        for (unsigned byte = 0; byte < size; ++byte)
            pixel |= std::uint32_t{from[byte]} << (8 * byte);
        to[0] = ChannelOf(pixel, header.blue);
        to[1] = ChannelOf(pixel, header.green);
        to[2] = ChannelOf(pixel, header.red);
        to[3] = header.alpha.mask != 0 ? ChannelOf(pixel, header.alpha) : 0xFF;
    }
}

Outcome ReadPlain(const BmpHeader &header, Picture &picture)
{
    const std::uint64_t rowSize = header.RowSize();
    if (header.pixels.size() < rowSize * header.height)
        return Outcome::Failed("broken bmp: %zu bytes of pixels, expected %llu", header.pixels.size(),
                               static_cast<unsigned long long>(rowSize * header.height));
    Colours colours(header);
    for (std::uint32_t number = 0; number < picture.Height(); ++number) {
        const std::uint32_t y = PlaceOf(header, picture, number);
        const std::uint8_t *from = header.pixels.data() + rowSize * number;
        if (header.coding == BmpCoding::Indexed)
            UnpackIndexed(header, from, picture.Row(y), picture.Width(), colours);
        else if (header.coding == BmpCoding::Bgr)
            UnpackBgr(from, picture.Row(y), picture.Width());
        else
            UnpackBitfields(header, from, picture.Row(y), picture.Width());
        picture.FinishRow(y);
    }
    return colours.Check();
}

Outcome ReadRunLength(const BmpHeader &header, Picture &picture)
{
    Buffer indices;
    if (!indices.Allocate(picture.Width()))
        return Outcome::Failed("there is not enough memory for the bmp");
    BmpRunLength runs(header.pixels, header.coding == BmpCoding::Rle4);
    Colours colours(header);
    for (std::uint32_t number = 0; number < picture.Height(); ++number) {
        if (const Outcome outcome = runs.NextRow({indices.Data(), picture.Width()}); outcome.HasFailed())
            return outcome;
        const std::uint32_t y = PlaceOf(header, picture, number);
        std::uint8_t *to = picture.Row(y);
        for (std::size_t x = 0; x < picture.Width(); ++x)
            colours.Put(indices.Data()[x], to + 4 * x);
        picture.FinishRow(y);
    }
    const Outcome outcome = runs.Finish();
    return outcome.HasFailed() ? outcome : colours.Check();
}

} // namespace

Outcome ReadBmp(Bytes file, Picture &picture)
{
    BmpHeader header;
    if (const Outcome outcome = ReadBmpHeader(file, header); outcome.HasFailed())
        return outcome;
    const Filling filling = header.alpha.mask != 0 ? Filling::WholePicture : Filling::OpaqueRows;
    if (const Outcome outcome = picture.Start(header.width, header.height, filling); outcome.HasFailed())
        return outcome;
    return header.HasRuns() ? ReadRunLength(header, picture) : ReadPlain(header, picture);
}
