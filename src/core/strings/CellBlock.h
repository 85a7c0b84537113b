#pragma once

#include "StringSetCommand.h"

#include <QStringList>

class StringTable;

// Cells on the clipboard, as spreadsheets exchange them: lines of texts divided by tabs. A cell is in quotes only where
// it has a tab or a line end, or begins with a quote; quotes in it are doubled. One cell alone is its plain text.

using CellRows = std::vector<QStringList>;

[[nodiscard]] QString ToTsv(const CellRows &cells);
/// Takes any text: a quote that isn't closed is a character like any other.
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
/// A block whose first column has IDs of the table goes by ID, and by its first line's titles to the columns if these
/// are titles of the table; rows of other IDs are added. Any other block goes to the cells from the one in focus on;
/// what is below the last row is added. One text alone fills the column in focus of all selected rows. The end of a
/// line and a tab in a cell become a blank.
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
