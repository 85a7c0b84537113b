// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

/// The direction in which a key moves from the cell that is being edited.
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

/// The cell that a step leads to, in a list of that many rows with columns of these widths. Up and down stay in the
/// same column. Next and previous skip columns with the width 0, and continue in the next or the previous row at the
/// end of a row. Nothing if the list has no such cell.
[[nodiscard]] std::optional<CellAt> NextCell(CellAt from, CellStep step, int rows, const std::vector<int> &widths);
