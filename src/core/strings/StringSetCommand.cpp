// SPDX-License-Identifier: MIT
#include "StringSetCommand.h"

#include "Environment.h"
#include "StringFileFormat.h"

#include <algorithm>

STR_SET_CMD::STR_SET_CMD(StringTable &stringTable, const std::vector<CellChange> &cellChanges,
                         const std::vector<NewRow> &newRows)
    : table(stringTable)
{
    for (const CellChange &change : cellChanges) {
        Q_ASSERT(change.col != StringTable::ID_COLUMN);
        if (changed.empty() || changed.back().mark.row != change.row)
            changed.push_back({MarkOf(table, change.row), {}});
        changed.back().texts.push_back({change.col, LanguageOf(table, change.col), change.text});
    }
    for (const NewRow &row : newRows) {
        Row &made = added.emplace_back(Row{{-1, table.Model().env.WideToNarrow(row.id)}, {}});
        if (row.push)
            made.texts.push_back({StringTable::KIND_COLUMN, -1, StringFileFormat::PUSH_WORD.toString()});
        for (const auto &[col, text] : row.texts)
            made.texts.push_back({col, LanguageOf(table, col), text});
    }
}

int STR_SET_CMD::FindRows(std::vector<Row> &rows) const
{
    for (Row &row : rows) {
        row.mark.row = table.RowOf(row.mark.id, row.mark.row);
        if (row.mark.row < 0)
            return EDIT_NO_ROW;
    }
    return EDIT_DONE;
}

int STR_SET_CMD::FindColumns(const std::vector<Row> &rows) const
{
    for (const Row &row : rows) {
        for (const Text &text : row.texts) {
            const int now = ColumnNow(table, text.col, text.language);
            if (now >= StringTable::FIRST_LANGUAGE_COLUMN && !table.ColumnLanguage(now))
                return EDIT_NO_LANGUAGE;
        }
    }
    return EDIT_DONE;
}

void STR_SET_CMD::Exchange(Row &row, Text &text)
{
    const int now = ColumnNow(table, text.col, text.language);
    const QString shown = table.CellText(row.mark.row, now);
    (void)table.ApplyCellEdit(row.mark.row, now, std::exchange(text.text, shown)); // the cell exists
}

int STR_SET_CMD::AddRows()
{
    const int first = table.RowCount();
    for (Row &row : added) {
        const int place = table.RowCount();
        const int code = table.CreateRow(table.Model().env.NarrowToWide(row.mark.id), place);
        if (code != EDIT_DONE) {
            for (int made = place - 1; made >= first; --made)
                (void)table.DeleteRow(made);
            return code;
        }
        row.mark = MarkOf(table, place);
        for (const Text &text : row.texts)
            (void)table.ApplyCellEdit(place, ColumnNow(table, text.col, text.language), text.text);
    }
    return EDIT_DONE;
}

bool STR_SET_CMD::Execute()
{
    int code = FindRows(changed);
    for (const auto *rows : {&changed, &added}) {
        if (code == EDIT_DONE)
            code = FindColumns(*rows);
    }
    if (code == EDIT_DONE) {
        const StringTable::Batch batch(table); // ends before a message is shown
        code = AddRows();
        for (auto row = changed.begin(); code == EDIT_DONE && row != changed.end(); ++row) {
            for (Text &text : row->texts)
                Exchange(*row, text);
        }
    }
    return ShowFailure(table, code);
}

bool STR_SET_CMD::Undo()
{
    int code = FindRows(changed);
    if (code == EDIT_DONE)
        code = FindRows(added);
    if (code == EDIT_DONE)
        code = FindColumns(changed);
    if (code == EDIT_DONE) {
        const StringTable::Batch batch(table);
        for (auto row = changed.rbegin(); row != changed.rend(); ++row) {
            for (auto text = row->texts.rbegin(); text != row->texts.rend(); ++text)
                Exchange(*row, *text);
        }
        std::vector<int> numbers;
        for (const Row &row : added)
            numbers.push_back(row.mark.row);
        std::sort(numbers.begin(), numbers.end());
        code = table.DeleteRows(numbers);
    }
    return ShowFailure(table, code);
}
