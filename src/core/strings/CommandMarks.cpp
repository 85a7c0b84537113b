// SPDX-License-Identifier: MIT
#include "CommandMarks.h"

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

int ColumnNow(const StringTable &table, int col, qint32 language)
{
    return col < StringTable::FIRST_LANGUAGE_COLUMN ? col : table.ColumnOf(language);
}

bool ShowFailure(StringTable &table, int code)
{
    if (code != EDIT_DONE)
        table.grid.ShowMessage(code);
    return code == EDIT_DONE;
}
