#pragma once

#include <QString>

class CResModel;

/// The codes of a failed import or export. The string file's header has further ones.
enum SpreadsheetCode : int
{
    SHEET_FAILED = 1726, ///< the file is no workbook, or its reading or writing broke off
    SHEET_EMPTY = 4306,  ///< fewer than 3 columns or rows
};

/// What an import or export came to: 0 or its code, and what is wrong with the workbook, in plain words, where the
/// report has none.
struct SpreadsheetResult
{
    int code = 0;
    QString reason;
};

/// Fills the string table from the first sheet of a workbook, as `SpreadsheetImport` plans it. What the header says of
/// languages before a failure is taken too.
[[nodiscard]] SpreadsheetResult ImportSpreadsheet(CResModel &document, const QString &path);

/// Writes the string table into a workbook and replaces the file at `path`; on a failure the old one stays.
[[nodiscard]] SpreadsheetResult ExportSpreadsheet(CResModel &document, const QString &path);

/// The name of a cell, such as AA3; the column counts from 0, the row from 1.
[[nodiscard]] QString CellName(quint32 column, quint32 row);
