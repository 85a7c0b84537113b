// SPDX-License-Identifier: MIT
#include "MergeColumns.h"

#include "MergeOrder.h"

#include <algorithm>
#include <map>

namespace
{

class ColumnMerge
{
public:
    ColumnMerge(const MergeTables &versions, const std::vector<MergeRow> &matched) : tables(versions), rows(matched) {}

    std::vector<MergedColumn> Run()
    {
        MatchColumns();
        FindChanged();
        std::vector<bool> isKept;
        for (const MergedColumn &column : columns) {
            const bool isInBoth = column.in[OURS] >= 0 && column.in[THEIRS] >= 0;
            const bool isGone = column.in[BASE] >= 0 && !isInBoth;
            isKept.push_back(!isGone || isChanged[isKept.size()]);
        }
        std::vector<MergedColumn> merged;
        for (const int place : MergeOrder(lists, isKept)) {
            merged.push_back(columns[size_t(place)]);
            MergeHeader(merged.back());
        }
        return merged;
    }

private:
    void MatchColumns()
    {
        std::map<int, int> known; // language number -> place in `columns`
        for (size_t side = BASE; side < MERGE_SIDES; ++side) {
            const auto &all = tables[side].columns;
            for (size_t i = 0; i < all.size(); ++i) {
                const auto [entry, isNew] = known.emplace(all[i].number, int(columns.size()));
                if (isNew)
                    columns.push_back({{-1, -1, -1}, {}, {}});
                columns[size_t(entry->second)].in[side] = int(i);
                lists[side].push_back(entry->second);
            }
        }
        isChanged.resize(columns.size());
    }

    /// Finds out in which of the languages that one side has dropped the other has added or changed a text.
    void FindChanged()
    {
        for (const MergeSide side : {OURS, THEIRS}) {
            const MergeSide dropping = side == OURS ? THEIRS : OURS;
            std::vector<size_t> dropped;
            for (size_t i = 0; i < columns.size(); ++i) {
                if (columns[i].IsDroppedBy(dropping) && columns[i].in[side] >= 0)
                    dropped.push_back(i);
            }
            if (!dropped.empty())
                FindChanged(side, dropped);
        }
    }

    void FindChanged(MergeSide side, const std::vector<size_t> &places)
    {
        std::vector<QStringView> cells;
        std::vector<QStringView> before;
        for (const MergeRow &row : rows) {
            if (row[side] < 0)
                continue;
            tables[side].Split(tables[side].rows[size_t(row[side])], cells);
            before.clear();
            if (row[BASE] >= 0)
                tables[BASE].Split(tables[BASE].rows[size_t(row[BASE])], before);
            for (const size_t place : places) {
                const auto cellOf = [&](MergeSide of, const std::vector<QStringView> &all) {
                    return all.empty() ? QStringView()
                                       : all[size_t(MergeTable::FIRST_LANGUAGE + columns[place].in[of])];
                };
                const QStringView text = cellOf(side, cells);
                if (!text.isEmpty() && text != cellOf(BASE, before))
                    isChanged[place] = true;
            }
        }
    }

    void MergeHeader(MergedColumn &column) const
    {
        const auto headerIn = [&](MergeSide side) {
            return column.in[side] < 0 ? QStringView() : tables[side].columns[size_t(column.in[side])].header;
        };
        const QStringView base = headerIn(BASE);
        column.ours = headerIn(OURS);
        column.theirs = headerIn(THEIRS);
        if (column.ours.isEmpty() || (!column.theirs.isEmpty() && column.ours == base))
            column.ours = column.theirs;
        else if (column.theirs.isEmpty() || column.theirs == base)
            column.theirs = column.ours;
    }

    const MergeTables &tables;
    const std::vector<MergeRow> &rows;
    std::vector<MergedColumn> columns;
    std::vector<bool> isChanged; // of each of `columns`
    MergeLists lists;
};

} // namespace

std::vector<MergedColumn> MergeColumns(const MergeTables &tables, const std::vector<MergeRow> &rows)
{
    return ColumnMerge(tables, rows).Run();
}
