// SPDX-License-Identifier: MIT
#pragma once

#include "Buffer.h"
#include "Outcome.h"

/// Decodes the runs of a bmp file into rows of palette indices. Pixels that the file leaves out have index 0.
///
/// The data are pairs of bytes:
///   n, v        n pixels: index v (8 bits), or the two halves of v in turn, the upper one first (4 bits)
///   0, 0        end of the row
///   0, 1        end of the picture
///   0, 2, x, y  move x pixels to the right and y rows further
///   0, n, ...   n plain indices (n is 3 or more), padded to an even number of bytes
///
/// Pixels beyond the right end of the row are dropped: some writers encode the padding of a row as pixels. Doesn't own
/// `data`. Call NextRow() for each row, then Finish().
class BmpRunLength
{
public:
    BmpRunLength(Bytes data, bool hasHalfBytes) : m_data(data), m_hasHalfBytes(hasHalfBytes) {}

    /// Fills the whole of `row` with the next row of the file. Fails if the data ends.
    Outcome NextRow(std::span<std::uint8_t> row);

    /// Must be called after the last row. Fails unless the end of the picture is marked.
    Outcome Finish();

private:
    enum class Step
    {
        SameRow,
        RowIsOver,
        Broken,
    };

    Step Run(std::span<std::uint8_t> row, unsigned count, std::uint8_t value);
    Step Escape(std::span<std::uint8_t> row, unsigned kind);
    Step Indices(std::span<std::uint8_t> row, unsigned count);
    Outcome Broken() const;

    Bytes m_data;
    bool m_hasHalfBytes;
    std::size_t m_at = 0;
    std::size_t m_x = 0;       // the position in the row that is being filled
    unsigned m_rowsToSkip = 0; // of a jump: rows that stay empty, including the current one
    bool m_hasEnded = false;
};
