// SPDX-License-Identifier: MIT
#include "Picture.h"

#include <bit>
#include <cstring>

using DeviceFormat::PixelFormat;

namespace
{

// The code below moves a pixel as one number, whose bytes must be in the order of the file.
static_assert(std::endian::native == std::endian::little);

/// Converts 8 bits to 5, to the nearest value: the product is (value * 31 + 127) / 255 for every byte, and needs no
/// division.
constexpr std::uint32_t To5(std::uint32_t value)
{
    return (value * 249 + 1014) >> 11;
}

/// Converts 8 bits to 6, to the nearest value: (value * 63 + 127) / 255.
constexpr std::uint32_t To6(std::uint32_t value)
{
    return (value * 253 + 505) >> 10;
}

constexpr bool ProductsAreTheNearestValues()
{
    for (std::uint32_t value = 0; value < 256; ++value)
        if (To5(value) != (value * 31 + 127) / 255 || To6(value) != (value * 63 + 127) / 255)
            return false;
    return true;
}
static_assert(ProductsAreTheNearestValues());

/// `from` has `width` pixels of 4 bytes; `to` has room for `width` pixels of 2 bytes.
void PackRow(const std::uint8_t *__restrict from, std::uint8_t *__restrict to, std::size_t width)
{
    for (std::size_t x = 0; x < width; ++x) {
        std::uint32_t pixel;
        std::memcpy(&pixel, from + 4 * x, sizeof pixel);
        const auto packed =
            static_cast<std::uint16_t>(To5(pixel >> 16 & 0xFF) << 11 | To6(pixel >> 8 & 0xFF) << 5 | To5(pixel & 0xFF));
        std::memcpy(to + 2 * x, &packed, sizeof packed);
    }
}

void PutU32(std::uint8_t *to, std::size_t value)
{
    for (unsigned byte = 0; byte < 4; ++byte)
        to[byte] = static_cast<std::uint8_t>(value >> (8 * byte));
}

} // namespace

Outcome Picture::CheckSize(std::uint64_t width, std::uint64_t height) const
{
    if (width == 0 || height == 0)
        return Outcome::Failed("picture of %llu x %llu pixels, expected at least 1 x 1",
                               static_cast<unsigned long long>(width), static_cast<unsigned long long>(height));
    if (width > m_maxPixels || height > m_maxPixels || width * height > m_maxPixels)
        return Outcome::Failed("picture of %llu x %llu pixels, expected at most %llu pixels in all",
                               static_cast<unsigned long long>(width), static_cast<unsigned long long>(height),
                               static_cast<unsigned long long>(m_maxPixels));
    return Outcome::Done();
}

Outcome Picture::Start(std::uint64_t width, std::uint64_t height, Filling filling)
{
    if (const Outcome outcome = CheckSize(width, height); outcome.HasFailed())
        return outcome;
    m_width = static_cast<std::uint32_t>(width);
    m_height = static_cast<std::uint32_t>(height);
    m_filling = filling;
    const PixelFormat format = filling == Filling::OpaqueRows ? PixelFormat::Rgb565 : PixelFormat::Argb8888;
    if (!m_device.Allocate(DeviceFormat::headerSize + Stride(format) * m_height) ||
        !m_row.Allocate(std::size_t{m_width} * 4))
        return Outcome::Failed("there is not enough memory for a picture of %u x %u pixels", m_width, m_height);
    return Outcome::Done();
}

std::uint8_t *Picture::Row(std::uint32_t y)
{
    return m_filling == Filling::OpaqueRows ? m_row.Data() : Pixels() + Stride(PixelFormat::Argb8888) * y;
}

void Picture::FinishRow(std::uint32_t y)
{
    if (m_filling == Filling::OpaqueRows)
        PackRow(m_row.Data(), Pixels() + Stride(PixelFormat::Rgb565) * y, m_width);
}

void Picture::Finish()
{
    if (m_filling == Filling::OpaqueRows) {
        WriteHeader(PixelFormat::Rgb565);
    } else if (!IsOpaque()) {
        WriteHeader(PixelFormat::Argb8888);
    } else {
        ShrinkToRgb565();
        WriteHeader(PixelFormat::Rgb565);
    }
}

bool Picture::IsOpaque() const
{
    const Bytes pixels = m_device.View().subspan(DeviceFormat::headerSize);
    std::uint8_t alpha = 0xFF;
    for (std::size_t at = 3; at < pixels.size(); at += 4)
        alpha &= pixels[at];
    return alpha == 0xFF;
}

void Picture::ShrinkToRgb565()
{
    const std::size_t wide = Stride(PixelFormat::Argb8888);
    const std::size_t narrow = Stride(PixelFormat::Rgb565);
    for (std::size_t y = 0; y < m_height; ++y) {
        std::memcpy(m_row.Data(), Pixels() + wide * y, wide);
        std::uint8_t *to = Pixels() + narrow * y;
        std::memset(to + narrow - 4, 0, 4); // the padding of the row to a multiple of 4 bytes
        PackRow(m_row.Data(), to, m_width);
    }
    m_device.Truncate(DeviceFormat::headerSize + narrow * m_height);
}

std::size_t Picture::Stride(PixelFormat format) const
{
    return format == PixelFormat::Argb8888 ? std::size_t{m_width} * 4 : (std::size_t{m_width} * 2 + 3) / 4 * 4;
}

void Picture::WriteHeader(PixelFormat format)
{
    std::uint8_t *header = m_device.Data();
    std::memcpy(header, DeviceFormat::magic, sizeof DeviceFormat::magic);
    header[4] = DeviceFormat::version;
    header[5] = static_cast<std::uint8_t>(format);
    header[6] = DeviceFormat::encodingPlain;
    header[7] = DeviceFormat::headerSize;
    PutU32(header + 8, m_width);
    PutU32(header + 12, m_height);
    PutU32(header + 16, Stride(format));
    PutU32(header + 20, Stride(format) * m_height);
}
