// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class CResModel;

/// The codes of a failed import or export. StringFileFormat.h has others.
enum SpreadsheetCode : int
{
    SHEET_FAILED = 1726, ///< the file isn't a workbook, or reading or writing it failed
    SHEET_EMPTY = 4306,  ///< fewer than 3 columns or rows
};

/// The result of an import or export: 0 or its code, and in plain words what the report doesn't say, such as what is
/// wrong with the workbook.
struct SpreadsheetResult
{
    int code = 0;
    QString reason;
};

/// Imports the first sheet of a workbook into the string table, as `SpreadsheetImport` plans it. After a failure the
/// languages that the header has before it are imported too. An import that changes nothing has that as its reason.
[[nodiscard]] SpreadsheetResult ImportSpreadsheet(CResModel &document, const QString &path);

/// What of the string table is exported.
struct SpreadsheetChoice
{
    std::vector<qint32> languages = {}; ///< the columns, in the order of the project; empty for all
    bool onlyMissing = false;           ///< only rows with a text in `source` but none in another of the languages
    qint32 source = -1;
};

/// The reason of an import that leaves the string table as it is.
[[nodiscard]] inline QString NothingImported()
{
    return QStringLiteral("the import changes nothing in the string table");
}

/// Writes the string table into a workbook and replaces the file at `path`. On failure the old file stays. A text with
/// half a surrogate pair gets U+FFFD in its place, with a warning, unless the format is .xls, which keeps it; so does a
/// text with U+0000 in .csv.
[[nodiscard]] SpreadsheetResult ExportSpreadsheet(CResModel &document, const QString &path,
                                                  const SpreadsheetChoice &choice = {});

/// Returns the name of a cell, such as AA3. The column is from 0, the row from 1.
[[nodiscard]] QString CellName(quint32 column, quint32 row);
