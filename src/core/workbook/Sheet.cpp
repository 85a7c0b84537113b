// SPDX-License-Identifier: MIT
#include "Sheet.h"

#include <algorithm>

namespace
{

bool IsBefore(const Sheet::Cell &a, const Sheet::Cell &b)
{
    return a.row != b.row ? a.row < b.row : a.column < b.column;
}

} // namespace

void Sheet::Add(quint32 row, quint32 column, TextPool::Ref text)
{
    if (!text.IsEmpty() && row < MOST_ROWS && column < MOST_COLUMNS)
        cells.push_back({row, column, text});
}

void Sheet::Finish()
{
    if (!std::is_sorted(cells.begin(), cells.end(), IsBefore))
        std::stable_sort(cells.begin(), cells.end(), IsBefore);
    // The last of several texts of a cell is kept: unique keeps the first, so it runs from the end.
    const auto isSame = [](const Cell &a, const Cell &b) { return a.row == b.row && a.column == b.column; };
    const auto kept = std::unique(cells.rbegin(), cells.rend(), isSame);
    cells.erase(cells.begin(), kept.base());
    if (cells.empty())
        return;
    const auto [first, last] = std::minmax_element(cells.begin(), cells.end(),
                                                   [](const Cell &a, const Cell &b) { return a.column < b.column; });
    usedRows = cells.back().row - cells.front().row + 1;
    usedColumns = last->column - first->column + 1;
    endRow = cells.back().row + 1;
    rowStarts.reserve(endRow + 1);
    for (size_t i = 0; i < cells.size(); ++i)
        rowStarts.resize(std::max(rowStarts.size(), size_t(cells[i].row) + 1), quint32(i));
    rowStarts.push_back(quint32(cells.size()));
}

std::span<const Sheet::Cell> Sheet::CellsOf(quint32 row) const
{
    if (row >= endRow)
        return {};
    return {cells.data() + rowStarts[row], cells.data() + rowStarts[row + 1]};
}

quint32 Sheet::EndColumn(quint32 row) const
{
    const std::span<const Cell> all = CellsOf(row);
    return all.empty() ? 0 : all.back().column + 1;
}

TextPool::Ref Sheet::RefAt(quint32 row, quint32 column) const
{
    const std::span<const Cell> all = CellsOf(row);
    const auto found = std::lower_bound(all.begin(), all.end(), column,
                                        [](const Cell &cell, quint32 number) { return cell.column < number; });
    return found != all.end() && found->column == column ? found->text : TextPool::Ref();
}
