// SPDX-License-Identifier: MIT
#pragma once

#include "Buffer.h"

/// Reads the alpha of a png's pixels row by row, without the colours, which takes a fraction of the time of ReadPng().
///
///     PngAlpha alpha;
///     if (!alpha.Open(fileBytes)) return ...; // use ReadPng()
///     while (alpha.Next()) Count(alpha.Row());
///     if (alpha.HasFailed()) return ...;
///
/// Often the first rows say enough; OpenStart() takes a part of the time for them.
class PngAlpha
{
public:
    /// Returns false if the png isn't one with an alpha channel of 8 bits, is interlaced or large, or is damaged.
    /// ReadPng() should then read it, and report its errors. `file` may have any bytes, and isn't used after the call.
    [[nodiscard]] bool Open(Bytes file);

    /// Does the same for the first `rows` rows of a png, given the first bytes of its file, or all. There are fewer if
    /// the picture, the bytes or 1 MiB of pixels don't have so many. What is behind these rows isn't checked.
    [[nodiscard]] bool OpenStart(Bytes start, std::uint32_t rows);

    std::uint32_t Width() const { return m_width; }
    std::uint32_t Height() const { return m_height; }

    /// Goes to the next row. Returns false after the last row that was decompressed, and if the row is damaged.
    bool Next();
    /// The alpha of each pixel of the row, valid until Next().
    Bytes Row() const { return m_row.View(); }
    bool HasFailed() const { return m_hasFailed; }

private:
    bool ReadHeader(Bytes file);
    std::size_t RowSize() const { return 1 + std::size_t{m_width} * m_pixelSize; }

    std::uint32_t m_width = 0;
    std::uint32_t m_height = 0;
    std::size_t m_pixelSize = 0;  // bytes; the last one is the alpha
    std::uint32_t m_rowCount = 0; // rows that were decompressed
    std::uint32_t m_next = 0;     // the number of the next row
    bool m_hasFailed = false;
    Buffer m_rows; // as UnpackPngRows() returns them
    Buffer m_row;
};
