// SPDX-License-Identifier: MIT
#include "StringCommands.h"

#include <algorithm>

STR_MOD_CMD::STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString text)
    : STR_MOD_CMD(stringTable, cellRow, cellCol, stringTable.CellText(cellRow, cellCol), std::move(text))
{
}

STR_MOD_CMD::STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString shown, QString text)
    : table(stringTable), mark(MarkOf(table, cellRow)), col(cellCol), language(LanguageOf(table, col)),
      oldText(std::move(shown)), oldId(mark.id), newText(std::move(text))
{
}

template <typename Edit> bool STR_MOD_CMD::Apply(const Edit &edit)
{
    const int row = table.RowOf(mark.id, mark.row);
    const int now = ColumnNow(table, col, language);
    const int code = edit(row, now);
    if (code == EDIT_DONE)
        mark = MarkOf(table, row); // the row may have another ID now
    else if (row < 0 || now >= table.ColumnCount())
        table.grid.ShowMessage(code); // there is no cell in which to correct it
    else
        table.grid.ReportCellError(code, row, now);
    return code == EDIT_DONE;
}

bool STR_MOD_CMD::Execute()
{
    return Apply([this](int row, int now) { return table.ApplyCellEdit(row, now, newText); });
}

bool STR_MOD_CMD::Undo()
{
    return Apply([this](int row, int now) {
        return now == StringTable::ID_COLUMN ? table.RestoreId(row, oldId) : table.ApplyCellEdit(row, now, oldText);
    });
}

STR_IST_CMD::STR_IST_CMD(StringTable &stringTable, int newRow, int cellCol, QString typed)
    : table(stringTable), mark{newRow, {}}, col(cellCol), language(LanguageOf(table, col)), text(std::move(typed))
{
}

bool STR_IST_CMD::Execute()
{
    mark.row = std::min(mark.row, table.RowCount());
    const int now = ColumnNow(table, col, language);
    const int code = table.InsertFromCell(mark.row, now, text);
    if (code != EDIT_DONE)
        table.grid.ReportCellError(code, mark.row, now);
    else
        mark = MarkOf(table, mark.row);
    return code == EDIT_DONE;
}

bool STR_IST_CMD::Undo()
{
    return table.DeleteRow(table.RowOf(mark.id, mark.row)) == EDIT_DONE;
}

STR_DEL_CMD::STR_DEL_CMD(StringTable &stringTable, const std::vector<int> &toDelete) : table(stringTable)
{
    for (const int row : toDelete) {
        Deleted &deleted = rows.emplace_back(Deleted{MarkOf(table, row), {}});
        if (CStringRes *head = table.Head(row))
            deleted.snapshot = table.SnapshotRow(*head);
    }
}

bool STR_DEL_CMD::Execute()
{
    for (Deleted &row : rows) {
        row.mark.row = table.RowOf(row.mark.id, row.mark.row);
        if (row.mark.row < 0)
            return ShowFailure(table, EDIT_NO_ROW); // if one of them is missing, none is deleted
    }
    std::sort(rows.begin(), rows.end(), [](const Deleted &a, const Deleted &b) { return a.mark.row < b.mark.row; });
    std::vector<int> numbers;
    for (const Deleted &row : rows)
        numbers.push_back(row.mark.row);
    std::vector<TreePlace> places;
    const int code = table.DeleteRows(numbers, &places);
    for (size_t n = 0; n < rows.size(); ++n)
        rows[n].snapshot.place = std::move(places[n]);
    return ShowFailure(table, code);
}

bool STR_DEL_CMD::Undo()
{
    int code = EDIT_DONE;
    {
        const StringTable::Batch batch(table); // ends before a message is shown
        for (auto row = rows.begin(); code == EDIT_DONE && row != rows.end(); ++row)
            code = table.RestoreRow(row->snapshot, row->mark.row, /*keepId=*/true);
    }
    return ShowFailure(table, code);
}

STR_PST_CMD::STR_PST_CMD(StringTable &stringTable) : table(stringTable)
{
    for (const auto &[row, head] : table.Copied())
        snapshots.emplace(row, table.SnapshotRow(*head));
}

bool STR_PST_CMD::Execute()
{
    int code = EDIT_DONE;
    {
        const StringTable::Batch batch(table); // as above
        for (auto copy = snapshots.begin(); code == EDIT_DONE && copy != snapshots.end(); ++copy) {
            const int place = table.RowCount();
            code = table.RestoreRow(copy->second, place, /*keepId=*/false);
            if (code == EDIT_DONE)
                pastedRows.push_back(MarkOf(table, place));
        }
    }
    return ShowFailure(table, code);
}

bool STR_PST_CMD::Undo()
{
    std::vector<int> rows;
    for (const RowMark &mark : pastedRows)
        rows.push_back(table.RowOf(mark.id, mark.row));
    std::sort(rows.begin(), rows.end());
    const bool allThere = rows.empty() || rows.front() >= 0;
    if (!ShowFailure(table, allThere ? table.DeleteRows(rows) : int(EDIT_NO_ROW)))
        return false;
    pastedRows.clear();
    return true;
}
