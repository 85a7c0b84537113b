#include "StringCommands.h"

#include <algorithm>

namespace
{

RowMark MarkOf(const StringTable &table, int row)
{
    const CStringRes *head = table.Head(row);
    return {row, head ? head->Id()->name : NarrowText()};
}

qint32 LanguageOf(const StringTable &table, int col)
{
    const CResFolder *folder = table.ColumnLanguage(col);
    return folder ? folder->index : -1;
}

/// Where the column stands that stood at `col` when it was the one of `language`.
int ColumnNow(const StringTable &table, int col, qint32 language)
{
    return col < StringTable::FIRST_LANGUAGE_COLUMN ? col : table.ColumnOf(language);
}

/// Deletes the rows where they stand now. False, with the message shown, when it didn't come to its end; nothing has
/// changed then if one of the rows is gone.
bool DeleteMarked(StringTable &table, const std::vector<RowMark> &marks)
{
    std::vector<int> rows;
    for (const RowMark &mark : marks)
        rows.push_back(table.RowOf(mark.id, mark.row));
    std::sort(rows.begin(), rows.end());
    const bool allThere = rows.empty() || rows.front() >= 0;
    const int code = allThere ? table.DeleteRows(rows) : int(EDIT_NO_ROW);
    if (code != EDIT_DONE)
        table.grid.ShowMessage(code);
    return code == EDIT_DONE;
}

} // namespace

STR_MOD_CMD::STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString text)
    : table(stringTable), mark(MarkOf(table, cellRow)), col(cellCol), language(LanguageOf(table, col)),
      oldText(table.CellText(cellRow, cellCol)), newText(std::move(text))
{
}

bool STR_MOD_CMD::Apply(const QString &text)
{
    const int row = table.RowOf(mark.id, mark.row);
    const int now = ColumnNow(table, col, language);
    const int code = table.ApplyCellEdit(row, now, text);
    if (code == EDIT_DONE)
        mark = MarkOf(table, row); // it may have got another ID
    else if (row < 0 || now >= table.ColumnCount())
        table.grid.ShowMessage(code); // there is no cell to correct it in
    else
        table.grid.ReportCellError(code, row, now);
    return code == EDIT_DONE;
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
        rows.push_back(MarkOf(table, row));
        Snapshot snapshot;
        if (CStringRes *head = table.Head(row); head && table.SnapshotRow(head, snapshot) == EDIT_DONE)
            snapshots.emplace(row, std::move(snapshot));
    }
}

bool STR_DEL_CMD::Execute()
{
    return DeleteMarked(table, rows);
}

bool STR_DEL_CMD::Undo()
{
    for (const auto &[row, snapshot] : snapshots) {
        if (const int code = table.RestoreRow(snapshot, row, /*keepId=*/true)) {
            table.grid.ShowMessage(code);
            return false;
        }
    }
    return true;
}

STR_PST_CMD::STR_PST_CMD(StringTable &stringTable) : table(stringTable)
{
    for (const auto &[row, head] : table.Copied()) {
        Snapshot snapshot;
        if (table.SnapshotRow(head, snapshot) == EDIT_DONE)
            snapshots.emplace(row, std::move(snapshot));
    }
}

bool STR_PST_CMD::Execute()
{
    for (const auto &[row, snapshot] : snapshots) {
        const int place = table.RowCount();
        if (const int code = table.RestoreRow(snapshot, place, /*keepId=*/false)) {
            table.grid.ShowMessage(code);
            return false;
        }
        pastedRows.push_back(MarkOf(table, place));
    }
    return true;
}

bool STR_PST_CMD::Undo()
{
    if (!DeleteMarked(table, pastedRows))
        return false;
    pastedRows.clear();
    return true;
}
