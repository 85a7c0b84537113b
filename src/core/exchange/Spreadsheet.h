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

/// The result of an import or export: 0 or its code, and what is wrong with the workbook, in plain words, if the report
/// doesn't say it.
struct SpreadsheetResult
{
    int code = 0;
    QString reason;
};

/// Imports the first sheet of a workbook into the string table, as `SpreadsheetImport` plans it. After a failure the
/// languages that the header has before it are imported too.
[[nodiscard]] SpreadsheetResult ImportSpreadsheet(CResModel &document, const QString &path);

/// What of the string table is exported.
struct SpreadsheetChoice
{
    std::vector<qint32> languages = {}; ///< the columns, in the order of the project; empty for all
    bool onlyMissing = false;           ///< only rows with a text in `source` but none in another of the languages
    qint32 source = -1;
};

/// Writes the string table into a workbook and replaces the file at `path`. On failure the old file stays.
[[nodiscard]] SpreadsheetResult ExportSpreadsheet(CResModel &document, const QString &path,
                                                  const SpreadsheetChoice &choice = {});

/// Returns the name of a cell, such as AA3. The column is from 0, the row from 1.
[[nodiscard]] QString CellName(quint32 column, quint32 row);
