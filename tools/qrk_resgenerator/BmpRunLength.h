#pragma once

#include "Buffer.h"
#include "Outcome.h"

/// The runs of a bmp file, as rows of palette indices. Pixels that the file leaves out have index 0.
///
/// The data are pairs of bytes:
///   n, v        n pixels: index v (8 bits), or the two halves of v in turn, the upper one first (4 bits)
///   0, 0        end of the row
///   0, 1        end of the picture
///   0, 2, x, y  go on x pixels to the right and y rows further
///   0, n, ...   n indices as they stand (n is 3 or more), filled up to an even number of bytes
///
/// What leaves the row on the right is dropped: some writers code the bytes that fill up a row as pixels.
/// Doesn't own `data`. Call NextRow() for each row, then Finish().
class BmpRunLength
{
public:
    BmpRunLength(Bytes data, bool hasHalfBytes) : m_data(data), m_hasHalfBytes(hasHalfBytes) {}

    /// Fills `row`, all of it, with the next row of the file. Fails where the data end.
    Outcome NextRow(std::span<std::uint8_t> row);

    /// To be called behind the last row: fails unless the picture's end is marked.
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
    std::size_t m_x = 0;       // in the row that is being filled
    unsigned m_rowsToSkip = 0; // of a jump: rows that stay empty, the present one included
    bool m_hasEnded = false;
};
