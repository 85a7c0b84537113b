#include "BmpHeader.h"
#include "BmpRunLength.h"
#include "Readers.h"

#include <cstring>

namespace
{

/// The row of the picture where the file's row `number` belongs.
std::uint32_t PlaceOf(const BmpHeader &header, const Picture &picture, std::uint32_t number)
{
    return header.isTopDown ? number : picture.Height() - 1 - number;
}

void UnpackIndexed(const BmpHeader &header, const std::uint8_t *from, std::uint8_t *to, std::uint32_t width)
{
    const unsigned bits = header.bitsPerPixel;
    const unsigned perByte = 8 / bits;
    const unsigned mask = (1U << bits) - 1;
    for (std::uint32_t x = 0; x < width; ++x) {
        const unsigned shift = 8 - bits * (x % perByte + 1);
        std::memcpy(to + std::size_t{x} * 4, header.palette[from[x / perByte] >> shift & mask], 4);
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

/// The channel's value on the scale of 0 to 255, the nearest.
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
    const std::uint64_t rowSize = (header.width * header.bitsPerPixel + 31) / 32 * 4;
    if (header.pixels.size() < rowSize * header.height)
        return Outcome::Failed("broken bmp: %zu bytes of pixels, wanted %llu", header.pixels.size(),
                               static_cast<unsigned long long>(rowSize * header.height));
    for (std::uint32_t number = 0; number < picture.Height(); ++number) {
        const std::uint32_t y = PlaceOf(header, picture, number);
        const std::uint8_t *from = header.pixels.data() + rowSize * number;
        if (header.coding == BmpCoding::Indexed)
            UnpackIndexed(header, from, picture.Row(y), picture.Width());
        else if (header.coding == BmpCoding::Bgr)
            UnpackBgr(from, picture.Row(y), picture.Width());
        else
            UnpackBitfields(header, from, picture.Row(y), picture.Width());
        picture.FinishRow(y);
    }
    return Outcome::Done();
}

Outcome ReadRunLength(const BmpHeader &header, Picture &picture)
{
    Buffer indices;
    if (!indices.Allocate(picture.Width()))
        return Outcome::Failed("bmp, for which there is not enough memory");
    BmpRunLength runs(header.pixels, header.coding == BmpCoding::Rle4);
    for (std::uint32_t number = 0; number < picture.Height(); ++number) {
        if (const Outcome outcome = runs.NextRow({indices.Data(), picture.Width()}); outcome.HasFailed())
            return outcome;
        const std::uint32_t y = PlaceOf(header, picture, number);
        std::uint8_t *to = picture.Row(y);
        for (std::size_t x = 0; x < picture.Width(); ++x)
            std::memcpy(to + 4 * x, header.palette[indices.Data()[x]], 4);
        picture.FinishRow(y);
    }
    return runs.Finish();
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
    const bool isRunLength = header.coding == BmpCoding::Rle4 || header.coding == BmpCoding::Rle8;
    return isRunLength ? ReadRunLength(header, picture) : ReadPlain(header, picture);
}
