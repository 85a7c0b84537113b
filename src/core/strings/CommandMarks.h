// SPDX-License-Identifier: MIT
#pragma once

#include "StringTable.h"

// Commands use these marks to find rows and columns again.

/// Identifies a row for a command.
struct RowMark
{
    int row;
    NarrowText id;
};

/// Returns the current mark of a row. The mark of the new-row line has no ID.
[[nodiscard]] RowMark MarkOf(const StringTable &table, int row);

/// Returns the language of a column; -1 for a column without a language.
[[nodiscard]] qint32 LanguageOf(const StringTable &table, int col);

/// Returns the current index of the column that had the index `col` and the language `language`. Returns the number of
/// columns when that column no longer exists.
[[nodiscard]] int ColumnNow(const StringTable &table, int col, qint32 language);

/// Shows the message of a failure. Returns true for EDIT_DONE.
bool ShowFailure(StringTable &table, int code);
