// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <utility>
#include <vector>

class StringTable;

// A gap is an empty cell in a language's column, in a row that has a text in another column of texts.

[[nodiscard]] bool IsGap(const StringTable &table, int row, int col);

/// Returns the number of gaps in each language's column, from the first language on.
[[nodiscard]] std::vector<int> CountGaps(const StringTable &table);

/// Returns the row and column of the next gap after a cell, or of the previous gap if `step` is -1. Searches the rest
/// of the row first, then the following rows. Searches only `rows` (ascending; the cell's row need not be one of them)
/// and columns whose width in `widths` isn't 0; `widths` has the width of each column of the table. Returns nullopt
/// when there is no gap.
[[nodiscard]] std::optional<std::pair<int, int>> NextGap(const StringTable &table, const std::vector<int> &rows,
                                                         const std::vector<int> &widths, int row, int col, int step);
