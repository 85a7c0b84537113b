// SPDX-License-Identifier: MIT
#include "PngAlpha.h"

#include "PngUnpacker.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{

/// Returns the one of the values to the left, above and above to the left that is nearest to left + above - corner.
std::uint8_t Paeth(int left, int above, int corner)
{
    const int toLeft = std::abs(above - corner);
    const int toAbove = std::abs(left - corner);
    const int toCorner = std::abs(left + above - 2 * corner);
    const int nearest = toLeft <= toAbove && toLeft <= toCorner ? left : toAbove <= toCorner ? above : corner;
    return static_cast<std::uint8_t>(nearest);
}

/// Adds to each filtered byte, one of `step`, what `predict(left, above, corner)` returns. `row` has the row above
/// before the call, and the result after it.
template <typename Predict>
void Undo(const std::uint8_t *filtered, std::size_t step, std::uint8_t *row, std::size_t width, Predict predict)
{
    std::uint8_t left = 0;
    std::uint8_t corner = 0;
    for (std::size_t x = 0; x < width; ++x) {
        const std::uint8_t above = row[x];
        left = static_cast<std::uint8_t>(filtered[x * step] + predict(left, above, corner));
        row[x] = left;
        corner = above;
    }
}

} // namespace

bool PngAlpha::ReadHeader(Bytes file)
{
    enum Place : std::size_t
    {
        TYPE = 12,
        WIDTH = 16,
        HEIGHT = 20,
        DEPTH = 24,
        COLOURS = 25,
        COMPRESSION = 26,
        FILTERING = 27,
        INTERLACING = 28,
        END = 29,
    };
    constexpr std::uint8_t grayWithAlpha = 4;
    constexpr std::uint8_t coloursWithAlpha = 6;
    if (file.size() < END || std::memcmp(file.data() + TYPE, "IHDR", 4) != 0 || file[DEPTH] != 8 ||
        (file[COLOURS] != grayWithAlpha && file[COLOURS] != coloursWithAlpha) || file[COMPRESSION] != 0 ||
        file[FILTERING] != 0 || file[INTERLACING] != 0)
        return false;
    const auto number = [file](std::size_t at) {
        return std::uint32_t{file[at]} << 24 | std::uint32_t{file[at + 1]} << 16 | std::uint32_t{file[at + 2]} << 8 |
               std::uint32_t{file[at + 3]};
    };
    m_width = number(WIDTH);
    m_height = number(HEIGHT);
    m_pixelSize = file[COLOURS] == coloursWithAlpha ? 4 : 2;
    m_next = 0;
    m_hasFailed = false;
    return true;
}

bool PngAlpha::Open(Bytes file)
{
    if (!ReadHeader(file) || !UnpackPngRows(file, m_rows))
        return false;
    m_rowCount = m_height;
    return m_row.Allocate(m_width);
}

bool PngAlpha::OpenStart(Bytes start, std::uint32_t rows)
{
    constexpr std::size_t maxBytes = 1 << 20;
    if (!ReadHeader(start) || m_width > maxBytes || m_height == 0)
        return false;
    const std::size_t wanted = std::min(m_height, rows) * RowSize();
    if (!m_rows.Allocate(std::min(wanted, maxBytes)))
        return false;
    m_rowCount = static_cast<std::uint32_t>(UnpackPngStart(start, m_rows) / RowSize());
    return m_rowCount > 0 && m_row.Allocate(m_width);
}

bool PngAlpha::Next()
{
    if (m_next == m_rowCount || m_hasFailed)
        return false;
    const std::uint8_t *const filter = m_rows.Data() + RowSize() * m_next++;
    const std::uint8_t *const filtered = filter + m_pixelSize; // behind the filter and the colours of the first pixel
    const auto undo = [&](auto predict) { Undo(filtered, m_pixelSize, m_row.Data(), m_width, predict); };
    switch (*filter) {
    case 0:
        undo([](int, int, int) { return 0; });
        break;
    case 1:
        undo([](int left, int, int) { return left; });
        break;
    case 2:
        undo([](int, int above, int) { return above; });
        break;
    case 3:
        undo([](int left, int above, int) { return (left + above) / 2; });
        break;
    case 4:
        undo([](int left, int above, int corner) { return int{Paeth(left, above, corner)}; });
        break;
    default:
        m_hasFailed = true;
        break;
    }
    return !m_hasFailed;
}
