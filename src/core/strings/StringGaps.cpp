// SPDX-License-Identifier: MIT
#include "StringGaps.h"

#include "TextColumns.h"

#include <algorithm>

namespace
{

/// Finds the gaps of one row at a time.
class RowGaps
{
public:
    explicit RowGaps(const StringTable &stringTable)
        : table(stringTable), columns(table), filled(size_t(table.ColumnCount()))
    {
    }

    /// Reads a row. False when it has no text at all, and so no gaps.
    bool Read(int row)
    {
        const CStringRes *head = table.Head(row);
        if (!head)
            return false;
        std::fill(filled.begin(), filled.end(), false);
        bool any = false;
        AnyRecord(*head, [&](const CStringRes &record) {
            const int col = record.HasText() ? columns.Of(record.Language()) : -1;
            if (col >= 0) {
                filled[size_t(col)] = true;
                any = true;
            }
            return false;
        });
        return any;
    }

    /// Returns whether a column has a gap in the row that was read.
    [[nodiscard]] bool IsGap(int col) const
    {
        const qint32 language = table.Languages()[size_t(col) - size_t(StringTable::FIRST_LANGUAGE_COLUMN)];
        return !filled[size_t(columns.Of(language))];
    }

private:
    const StringTable &table;
    const TextColumns columns;
    std::vector<char> filled; // by column
};

} // namespace

bool IsGap(const StringTable &table, int row, int col)
{
    if (col < StringTable::FIRST_LANGUAGE_COLUMN || col >= table.ColumnCount())
        return false;
    RowGaps gaps(table);
    return gaps.Read(row) && gaps.IsGap(col);
}

std::vector<int> CountGaps(const StringTable &table)
{
    const TextColumns columns(table);
    std::vector<int> filled(size_t(table.ColumnCount()));
    int rowsWithText = 0;
    const CResFolder *const heads = table.ColumnLanguage(StringTable::DESCRIPTION_COLUMN);
    for (CBaseRes *res = heads ? heads->resources.First() : nullptr; res; res = res->NextInFolder()) {
        bool any = false;
        AnyRecord(static_cast<CStringRes &>(*res), [&](const CStringRes &record) {
            const int col = record.HasText() ? columns.Of(record.Language()) : -1;
            if (col >= 0) {
                ++filled[size_t(col)];
                any = true;
            }
            return false;
        });
        rowsWithText += any;
    }
    std::vector<int> gaps; // a row with a text has a gap in each column without a text
    for (const qint32 language : table.Languages())
        gaps.push_back(rowsWithText - filled[size_t(columns.Of(language))]);
    return gaps;
}

std::optional<std::pair<int, int>> NextGap(const StringTable &table, const std::vector<int> &rows,
                                           const std::vector<int> &widths, int row, int col, int step)
{
    const int first = StringTable::FIRST_LANGUAGE_COLUMN;
    const int last = std::min(table.ColumnCount(), int(widths.size())) - 1;
    const bool isForward = step > 0;
    RowGaps gaps(table);
    const auto findIn = [&](int inRow, int from) -> std::optional<std::pair<int, int>> {
        if (!gaps.Read(inRow))
            return {};
        for (int at = from; at >= first && at <= last; at += isForward ? 1 : -1) {
            if (widths[size_t(at)] > 0 && gaps.IsGap(at))
                return std::pair(inRow, at);
        }
        return {};
    };
    const auto start = [&](int inRow) {
        if (inRow != row)
            return isForward ? first : last;
        return isForward ? std::max(col + 1, first) : std::min(col - 1, last);
    };
    auto at =
        isForward ? std::lower_bound(rows.begin(), rows.end(), row) : std::upper_bound(rows.begin(), rows.end(), row);
    while (at != (isForward ? rows.end() : rows.begin())) {
        const int inRow = isForward ? *at++ : *--at;
        if (const auto found = findIn(inRow, start(inRow)))
            return found;
    }
    return {};
}
