// SPDX-License-Identifier: MIT
#pragma once

#include "Buffer.h"
#include "DeviceFormat.h"
#include "Outcome.h"

/// How a reader fills a picture.
enum class Filling
{
    OpaqueRows,   ///< No pixel is transparent, and each row is written once.
    WholePicture, ///< Pixels may be transparent, or a row is written more than once.
};

/// A picture that a reader fills and that is converted to the device's bytes.
///
/// A reader calls Start() once, then for each row, in any order, writes `width` pixels of 4 bytes (blue, green, red,
/// alpha) to Row(y) and calls FinishRow(y). OpaqueRows are turned into RGB565 at once, with one row of memory beside
/// the result; a WholePicture keeps its pixels in the memory of the result until Finish().
///
///     Picture picture(DeviceFormat::maxPixels);
///     Outcome outcome = ReadPicture(fileBytes, picture);
///     if (!outcome.HasFailed()) { picture.Finish(); Write(picture.DeviceBytes()); }
class Picture
{
public:
    /// A picture of more than `maxPixels` pixels is refused by Start().
    explicit Picture(std::uint64_t maxPixels) : m_maxPixels(maxPixels) {}

    /// Fails if a picture of this size is refused, whatever else the file contains.
    Outcome CheckSize(std::uint64_t width, std::uint64_t height) const;

    /// Allocates the memory. All pixels are transparent black at first.
    Outcome Start(std::uint64_t width, std::uint64_t height, Filling filling);

    std::uint32_t Width() const { return m_width; }
    std::uint32_t Height() const { return m_height; }

    /// The memory to write row `y` to, valid until FinishRow(). `y` must be less than Height(). The alpha byte of
    /// OpaqueRows is ignored.
    std::uint8_t *Row(std::uint32_t y);
    void FinishRow(std::uint32_t y);

    /// Writes the header. A WholePicture without a transparent pixel becomes RGB565.
    void Finish();

    Bytes DeviceBytes() const { return m_device.View(); }

private:
    bool IsOpaque() const;
    void ShrinkToRgb565();
    std::uint8_t *Pixels() { return m_device.Data() + DeviceFormat::headerSize; }
    std::size_t Stride(DeviceFormat::PixelFormat format) const;
    void WriteHeader(DeviceFormat::PixelFormat format);

    const std::uint64_t m_maxPixels;
    std::uint32_t m_width = 0;
    std::uint32_t m_height = 0;
    Filling m_filling = Filling::WholePicture;
    Buffer m_device; // the file's bytes; while a WholePicture is read its pixels are ARGB8888
    Buffer m_row;    // one row of 4-byte pixels
};
