#pragma once

#include "StringTable.h"

// How commands know rows and columns again.

/// A row as a command knows it.
struct RowMark
{
    int row;
    NarrowText id;
};

/// The mark of a row as it is now; one without an ID for the new-row line.
[[nodiscard]] RowMark MarkOf(const StringTable &table, int row);

/// The language of a column, -1 for a column without one.
[[nodiscard]] qint32 LanguageOf(const StringTable &table, int col);

/// Which column is now the one that was `col` when it was that of `language`; one behind the last when it is gone.
[[nodiscard]] int ColumnNow(const StringTable &table, int col, qint32 language);

/// Shows the message of a failure. True for EDIT_DONE.
bool ShowFailure(StringTable &table, int code);
