// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class StringTable;

/// Returns the order of a string table's rows for a sort state, for `StringTable::Reorder`. The state +n sorts
/// ascending by column n - 1, and -n descending. Rows with equal texts keep their current order. The column of kinds
/// sorts Normal before Push, and by ID within each kind. The new-row line isn't included. Returns the current order
/// when the table has no such column.
[[nodiscard]] std::vector<int> StringOrder(const StringTable &table, int sortState);
