#pragma once

#include "Workbook.h"

#include <QStringList>

class CResModel;

/// The numbers of failures, as whoever imports or exports sees them; with those of the string file's header.
enum SpreadsheetCode : int
{
    SHEET_FAILED = 1726, ///< the file is no workbook, or its reading or writing broke off
    SHEET_EMPTY = 4306,  ///< fewer than 3 columns or rows
};

/// What became of a text of the sheet.
enum class CellFate
{
    Filled,   ///< it came into a cell that was there and empty
    New,      ///< it came into a new cell
    Same,     ///< the table has it already
    Kept,     ///< another text stands in the table, and stays; the sheet's may be empty
    Replaced, ///< the row had another kind
    Nowhere,  ///< it belongs to no row or column of the table
};

/// Hears of every text of the sheet below the header but the IDs and the row that ends it, row by row, and of every
/// cell that is empty there and isn't in the table. Rows and columns count from 0. What is no kind, and a sheet without
/// kinds, clears a row's own: that is told with the word that the row has then, in the latter case of its ID.
class IImportWatch
{
public:
    virtual ~IImportWatch() = default;
    virtual void Cell(quint32 row, quint32 column, CellFate fate, const QString &inTable, const QString &inSheet) = 0;
};

/// What an import or export came to: 0 or its code, and what is wrong with the workbook, in plain words, where the
/// report has none.
struct SpreadsheetResult
{
    int code = 0;
    QString reason;
};

/// Fills the string table from the first sheet of a workbook: rows and texts that aren't there are made, empty texts
/// are filled, a text that stands there stays. Logs what is wrong; the errors of a row don't stop it. What was imported
/// before a failure stays.
[[nodiscard]] SpreadsheetResult ImportSpreadsheet(CResModel &document, const QString &path,
                                                  IImportWatch *watch = nullptr);

/// The cells, by ID and language, whose texts a string file can't hold: those with a tab or a line end.
[[nodiscard]] QStringList TextsThatDontFit(const CResModel &document);

/// Writes the string table into a workbook and replaces the file at `path`; on a failure the old one stays.
[[nodiscard]] SpreadsheetResult ExportSpreadsheet(CResModel &document, const QString &path);

/// The name of a cell, such as AA3; the column counts from 0, the row from 1.
[[nodiscard]] QString CellName(quint32 column, quint32 row);
