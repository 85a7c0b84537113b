#pragma once

#include <optional>
#include <vector>

/// Where a key leads from the cell that is being edited.
enum class CellStep
{
    Next,
    Previous,
    Up,
    Down,
};

struct CellAt
{
    int row;
    int col;
    bool operator==(const CellAt &) const = default;
};

/// The cell that a step leads to, in a list of that many rows with columns of these widths: up and down in the same
/// column; next and previous to a column with a width above 0, from the end of a row to the beginning of the next.
/// Nothing where the list has no such cell.
[[nodiscard]] std::optional<CellAt> NextCell(CellAt from, CellStep step, int rows, const std::vector<int> &widths);
