#include "StringOrder.h"

#include "NameOrder.h"
#include "StringTable.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

std::vector<int> StringOrder(const StringTable &table, int sortState)
{
    const int count = table.RowCount();
    if (sortState == 0 || std::abs(qint64(sortState)) > table.ColumnCount()) {
        std::vector<int> order(static_cast<size_t>(count));
        std::iota(order.begin(), order.end(), 0);
        return order;
    }
    const int col = std::abs(sortState) - 1;
    const NameOrder names;
    if (col == StringTable::ID_COLUMN || col == StringTable::KIND_COLUMN) {
        std::vector<int> order = names.Sorted(
            count, [&](int row) { return table.CellText(row, StringTable::ID_COLUMN); }, sortState);
        if (col == StringTable::KIND_COLUMN) {
            std::stable_partition(order.begin(), order.end(),
                                  [&](int row) { return table.Head(row)->Id()->push == (sortState < 0); });
        }
        return order;
    }
    const CResFolder *const folder = table.ColumnLanguage(col); // once: a look for it takes longer than the text
    const auto textOf = [&](int row) {
        const CStringRes *cell = folder ? table.Head(row)->FindLanguage(folder->index) : nullptr;
        return cell ? cell->text : QString();
    };
    return names.Sorted(count, textOf, sortState);
}
