// SPDX-License-Identifier: MIT
#pragma once

#include "StringSetCommand.h"

#include <QStringList>

class StringTable;

// Cells on the clipboard, as spreadsheets exchange them: lines of texts separated by tabs. A cell is in quotes only if
// it contains a tab or a line end, or begins with a quote; the quotes in it are doubled. A single cell is plain text.

using CellRows = std::vector<QStringList>;

[[nodiscard]] QString ToTsv(const CellRows &cells);
/// Parses any text: a quote that isn't closed, or whose closing quote isn't the end of the cell, is an ordinary
/// character. Returns at least one cell.
[[nodiscard]] CellRows FromTsv(QStringView text);

/// Returns the cells of those rows and columns of a table. If there are several columns, the first line has their
/// titles.
[[nodiscard]] CellRows CellsOf(const StringTable &table, const std::vector<int> &rows, const std::vector<int> &columns);

/// Where the user pastes.
struct PasteTarget
{
    int row;                   ///< the row in focus; may be the new-row line
    int col;                   ///< the column in focus
    std::vector<int> selected; ///< the selected rows, ascending, without the new-row line
    std::vector<int> shown;    ///< the shown rows, ascending, without the new-row line
    std::vector<int> columns;  ///< the columns that aren't hidden, ascending
};

/// What a paste would do. Computing it changes nothing.
///
/// The first line of a block has its titles if all its texts are titles of the table, or if it begins with the title of
/// the ID column. If a block's titles include that of the ID column, its lines are pasted by ID and title; unknown
/// titles are left out. A block without titles whose first column has IDs is pasted by ID too; its other columns are
/// pasted into the columns from the one in focus on. At least half of its lines must have an ID of the table then, or
/// the column in focus must be the ID column. A line with another ID becomes a new row.
///
/// Any other block is pasted into the cells from the one in focus on, without its titles. Lines below the last row
/// become new rows. A single text fills the column in focus of all selected rows, or of the row in focus if no row is
/// selected.
///
/// No row gets another ID. The IDs of new rows are trimmed and converted to upper case, as typed IDs are. Line ends and
/// tabs in a text become blanks. An empty text empties a cell; an empty kind leaves the kind as it is.
struct PastePlan
{
    std::vector<CellChange> changes; ///< only cells whose text changes
    std::vector<NewRow> rows;
    QStringList refused; ///< what can't be pasted and why, one line for each, for the user

    [[nodiscard]] bool IsEmpty() const { return changes.empty() && rows.empty(); }
};
[[nodiscard]] PastePlan PlanPaste(const StringTable &table, const CellRows &block, const PasteTarget &target);

/// Returns what replacing `text` in those cells would change. Line ends in `replacement` become blanks.
[[nodiscard]] std::vector<CellChange> PlanReplace(const StringTable &table, const std::vector<int> &rows,
                                                  const std::vector<int> &columns, const QString &text, bool matchCase,
                                                  const QString &replacement);
