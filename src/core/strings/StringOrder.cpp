// SPDX-License-Identifier: MIT
#include "StringOrder.h"

#include "NameOrder.h"
#include "StringTable.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>

namespace
{

/// Returns the texts of a language, row by row; empty for a row without one. Walks the records of several rows at the
/// same time, because each step waits for memory and the waits then overlap.
std::vector<QStringView> TextsOf(const StringTable &table, qint32 language)
{
    constexpr int TOGETHER = 16; // rows
    std::vector<QStringView> texts(size_t(table.RowCount()));
    for (int first = 0; first < table.RowCount(); first += TOGETHER) {
        const int count = std::min(TOGETHER, table.RowCount() - first);
        std::array<const CStringRes *, TOGETHER> records{};
        for (int n = 0; n < count; ++n)
            records[size_t(n)] = table.Head(first + n);
        const auto heads = records;
        for (bool goesOn = true; goesOn;) {
            goesOn = false;
            for (size_t n = 0; n < size_t(count); ++n) {
                const CStringRes *&record = records[n];
                if (record && record->Language() != language) {
                    record = record->NextInRow();
                    if (record == heads[n])
                        record = nullptr;
                    goesOn = true;
                }
            }
        }
        for (int n = 0; n < count; ++n) {
            if (const CStringRes *record = records[size_t(n)])
                texts[size_t(first + n)] = record->Text();
        }
    }
    return texts;
}

} // namespace

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
        std::vector<bool> isPush(static_cast<size_t>(count)); // read with the ID, which is in the same record
        const auto idOf = [&](int row) {
            isPush[size_t(row)] = table.Head(row)->Id()->push;
            return table.CellText(row, StringTable::ID_COLUMN);
        };
        std::vector<int> order = names.Sorted(count, idOf, sortState);
        if (col == StringTable::KIND_COLUMN) {
            std::stable_partition(order.begin(), order.end(),
                                  [&](int row) { return isPush[size_t(row)] == (sortState < 0); });
        }
        return order;
    }
    const CResFolder *const folder = table.ColumnLanguage(col); // once: finding it takes longer than the text
    return names.Sorted(folder ? TextsOf(table, folder->index) : std::vector<QStringView>(static_cast<size_t>(count)),
                        sortState);
}
