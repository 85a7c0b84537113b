#pragma once

#include "Workbook.h"

#include <QByteArray>

// The formats, a pair of functions each. A reader gets the whole file, trusts nothing in it, and may add cells before
// it fails; it doesn't call Sheet::Finish. It gives a text as it stands, a number as FormatFloat prints it, and nothing
// for any other value (a boolean, an error, an empty cell). A writer gives the whole file, the same bytes for the same
// sheet.

/// Excel 97-2003: BIFF8 in the stream "Workbook" of a compound file ([MS-XLS], [MS-CFB]).
[[nodiscard]] WorkbookResult ReadXls(QByteArrayView file, Sheet &sheet);
[[nodiscard]] WorkbookResult WriteXls(ISheetSource &source, QByteArray &file);

/// Office Open XML SpreadsheetML (ECMA-376) in a ZIP file.
[[nodiscard]] WorkbookResult ReadXlsx(QByteArrayView file, Sheet &sheet);
[[nodiscard]] WorkbookResult WriteXlsx(ISheetSource &source, QByteArray &file);

/// Comma-separated values (RFC 4180), UTF-8 with a byte order mark.
[[nodiscard]] WorkbookResult ReadCsv(QByteArrayView file, Sheet &sheet);
[[nodiscard]] WorkbookResult WriteCsv(ISheetSource &source, QByteArray &file);
