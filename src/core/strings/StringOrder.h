#pragma once

#include <vector>

class StringTable;

/// In what order a string table shows its rows for a sort state: +n sorts ascending by column n - 1, -n descending. For
/// `StringTable::Reorder`. Rows with equal texts keep the order in which they are shown now; the column of kinds puts
/// Normal before Push and sorts by ID within each. The new-row line isn't in it. The order is that of now when the
/// table has no such column.
[[nodiscard]] std::vector<int> StringOrder(const StringTable &table, int sortState);
