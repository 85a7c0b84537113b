#pragma once

#include "StringSetCommand.h"

#include <QStringList>

class StringTable;

// Cells on the clipboard, as spreadsheets exchange them: lines of texts divided by tabs. A cell is in quotes only where
// it has a tab or a line end, or begins with a quote; quotes in it are doubled. One cell alone is its plain text.

using CellRows = std::vector<QStringList>;

[[nodiscard]] QString ToTsv(const CellRows &cells);
/// Takes any text: a quote that isn't closed, or has something behind it, is a character like any other. Gives one cell
/// at least.
[[nodiscard]] CellRows FromTsv(QStringView text);

/// The cells of those rows and columns of a table, under the titles of the columns when they are several columns.
[[nodiscard]] CellRows CellsOf(const StringTable &table, const std::vector<int> &rows, const std::vector<int> &columns);

/// Where the user pastes.
struct PasteTarget
{
    int row;                   ///< in focus; may be the new-row line
    int col;                   ///< in focus
    std::vector<int> selected; ///< rows, ascending, without the new-row line
    std::vector<int> shown;    ///< rows, ascending, without the new-row line
    std::vector<int> columns;  ///< that aren't hidden, ascending
};

/// What a paste would do. Computing it changes nothing.
///
/// The first line of a block is its titles when all of it are titles of the table, or when it begins with that of the
/// ID. A block with titles that have the ID's goes by ID and title; further titles are left out. A block without titles
/// whose first column has IDs goes by ID too, its other columns to those from the one in focus on; most lines must have
/// an ID of the table then, or the column in focus must be that of the ID. A line with another ID becomes a new row.
///
/// Any other block goes to the cells from the one in focus on, titles left out; what is below the last row becomes new
/// rows. One text alone fills the column in focus of all selected rows, or else of the row in focus.
///
/// No row gets another ID. The IDs of new rows are trimmed and made upper case, as typed ones are. The end of a line
/// and a tab in a text become a blank. An empty text empties a cell; an empty kind leaves it.
struct PastePlan
{
    std::vector<CellChange> changes; ///< only cells whose text changes
    std::vector<NewRow> rows;
    QStringList refused; ///< what can't be taken and why, a line each, for the user

    [[nodiscard]] bool IsEmpty() const { return changes.empty() && rows.empty(); }
};
[[nodiscard]] PastePlan PlanPaste(const StringTable &table, const CellRows &block, const PasteTarget &target);

/// What replacing `text` in those cells would change; for a replacement text in which line ends are blanks.
[[nodiscard]] std::vector<CellChange> PlanReplace(const StringTable &table, const std::vector<int> &rows,
                                                  const std::vector<int> &columns, const QString &text, bool matchCase,
                                                  const QString &replacement);
