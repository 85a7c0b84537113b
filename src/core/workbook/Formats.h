// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QByteArray>

#include <cstdio>

// Each format has a reader and a writer. A reader gets the whole file, doesn't trust its content, and may add cells
// before it fails; it doesn't call Sheet::Finish. It reads a text unchanged and a number as FormatFloat prints it, and
// ignores other values (a boolean, an error, an empty cell). A writer gets an empty file. It writes the same bytes for
// the same sheet, and nothing when the sheet doesn't fit. The caller must check whether the writes succeeded.

/// Excel 97-2003: BIFF8 in the stream "Workbook" of a compound file ([MS-XLS], [MS-CFB]).
[[nodiscard]] WorkbookResult ReadXls(const QByteArray &file, Sheet &sheet);
[[nodiscard]] WorkbookResult WriteXls(ISheetSource &source, std::FILE *file);

/// Office Open XML SpreadsheetML (ECMA-376) in a ZIP file.
[[nodiscard]] WorkbookResult ReadXlsx(const QByteArray &file, Sheet &sheet);
[[nodiscard]] WorkbookResult WriteXlsx(ISheetSource &source, std::FILE *file);

/// Comma-separated values (RFC 4180), UTF-8 with a byte order mark.
[[nodiscard]] WorkbookResult ReadCsv(const QByteArray &file, Sheet &sheet);
[[nodiscard]] WorkbookResult WriteCsv(ISheetSource &source, std::FILE *file);
