#pragma once

#include <optional>
#include <utility>
#include <vector>

/// Which rows of a table a filter leaves, as a mapping in both directions. Without a filter all rows are shown and the
/// mapping takes no memory. The row behind the last, which makes new rows, is always shown last.
class ShownRows
{
public:
    /// Rows of the table, ascending; nothing: no filter.
    void Set(std::optional<std::vector<int>> rows) { filtered = std::move(rows); }
    [[nodiscard]] bool HasFilter() const { return filtered.has_value(); }

    // `tableRows` is the number of rows of the table, without the one that makes new rows.
    [[nodiscard]] int Count(int tableRows) const { return filtered ? int(filtered->size()) : tableRows; }
    [[nodiscard]] int TableRow(int row, int tableRows) const;
    /// -1 for a row that isn't shown.
    [[nodiscard]] int ShownRow(int tableRow, int tableRows) const;
    /// Where a row of the table is shown, or would be if it were.
    [[nodiscard]] int PlaceOf(int tableRow) const;

    /// A row of the table that is there already, and hidden.
    void Show(int tableRow);
    /// A row comes into the table, and is shown.
    void Insert(int tableRow);
    /// A row leaves the table.
    void Remove(int tableRow);
    /// Row i of the table is the one that was row `order[i]`.
    void Reorder(const std::vector<int> &order);

private:
    std::optional<std::vector<int>> filtered; // rows of the table, ascending
};
