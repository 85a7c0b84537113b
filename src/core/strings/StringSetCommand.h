// SPDX-License-Identifier: MIT
#pragma once

#include "StringCommands.h"

/// A new text for a cell of an existing row.
struct CellChange
{
    int row;
    int col; ///< not the ID column
    QString text;
};

/// A new row for the end of the table.
struct NewRow
{
    QString id; ///< the exact ID, not checked yet; empty for a default ID
    bool push = false;
    std::vector<std::pair<int, QString>> texts; ///< columns, from the Description on, with their texts
};

/// Changes several cells and adds new rows in one step, for example for a paste from the clipboard or a replacement.
/// Makes all the changes or none: after a failure it undoes the earlier changes. Redo makes the rows with the same IDs.
class STR_SET_CMD : public Command
{
public:
    STR_SET_CMD(StringTable &stringTable, const std::vector<CellChange> &cellChanges,
                const std::vector<NewRow> &newRows);
    bool Execute() override;
    bool Undo() override;

private:
    struct Text
    {
        int col;
        qint32 language; // of the column, whose index may have changed
        QString text;    // the next text of the cell: Execute and Undo exchange it for the current text
    };
    struct Row
    {
        RowMark mark;
        std::vector<Text> texts;
    };

    // These two don't change the table. If both succeed, only the ID of a new row can still fail.
    [[nodiscard]] int FindRows(std::vector<Row> &rows) const;
    [[nodiscard]] int FindColumns(const std::vector<Row> &rows) const;
    /// Adds all new rows or none.
    [[nodiscard]] int AddRows();
    void Exchange(Row &row, Text &text);

    StringTable &table;
    std::vector<Row> changed; // a row may be in it several times
    std::vector<Row> added;   // the first Execute makes the missing IDs
};
