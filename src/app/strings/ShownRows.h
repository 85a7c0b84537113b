// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <utility>
#include <vector>

/// The rows of a table that a filter shows, as a mapping in both directions. Without a filter all rows are shown, and
/// the mapping needs no memory. The new-row line after the last row is always shown last.
class ShownRows
{
public:
    /// Sets the shown rows of the table, ascending. Nothing removes the filter.
    void Set(std::optional<std::vector<int>> rows) { filtered = std::move(rows); }
    [[nodiscard]] bool HasFilter() const { return filtered.has_value(); }

    // `tableRows` is the number of rows of the table, without the new-row line.
    [[nodiscard]] int Count(int tableRows) const { return filtered ? int(filtered->size()) : tableRows; }
    [[nodiscard]] int TableRow(int row, int tableRows) const;
    /// -1 for a row that isn't shown.
    [[nodiscard]] int ShownRow(int tableRow, int tableRows) const;
    /// The position at which a row of the table is shown, or would be shown.
    [[nodiscard]] int PlaceOf(int tableRow) const;

    /// Shows an existing row of the table that is hidden.
    void Show(int tableRow);
    /// Updates the mapping for a row that is inserted into the table, and shows that row.
    void Insert(int tableRow);
    /// Updates the mapping for a row that is removed from the table.
    void Remove(int tableRow);
    /// Updates the mapping for a new order. Row i of the table was row `order[i]` before.
    void Reorder(const std::vector<int> &order);

private:
    std::optional<std::vector<int>> filtered; // rows of the table, ascending
};
