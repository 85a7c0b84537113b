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
}

quint32 Sheet::EndColumn(quint32 row) const
{
    const Cell behind{row + 1, 0, {}};
    const auto next = std::lower_bound(cells.begin(), cells.end(), behind, IsBefore);
    return next != cells.begin() && (next - 1)->row == row ? (next - 1)->column + 1 : 0;
}

QString Sheet::At(quint32 row, quint32 column) const
{
    const Cell searched{row, column, {}};
    const auto found = std::lower_bound(cells.begin(), cells.end(), searched, IsBefore);
    return found != cells.end() && found->row == row && found->column == column ? texts.Text(found->text) : QString();
}
