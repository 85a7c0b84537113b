#pragma once

#include <optional>
#include <utility>
#include <vector>

class StringTable;

// A gap is an empty cell in a language's column, in a row that has a text in another column of texts.

[[nodiscard]] bool IsGap(const StringTable &table, int row, int col);

/// How many gaps each language's column has; that of the first language first.
[[nodiscard]] std::vector<int> CountGaps(const StringTable &table);

/// The next gap behind a cell, or the one in front of it for a `step` of -1: along the row, then in the rows that
/// follow. Looks only at `rows` (ascending; the cell's row need not be one of them) and at columns that aren't 0 wide
/// in `widths`, which has the width of each column of the table. Nothing when there is none.
[[nodiscard]] std::optional<std::pair<int, int>> NextGap(const StringTable &table, const std::vector<int> &rows,
                                                         const std::vector<int> &widths, int row, int col, int step);
