// SPDX-License-Identifier: MIT
#pragma once

#include "CommandMarks.h"

// The edits of a string table that can be undone. Each command keeps what it needs for both directions and calls the
// table to make the change. It finds rows again by number and ID: after a sort a command acts on the rows for which it
// was made, or on none.

/// Changes the text of a cell. It must be made before the change: undo restores what the cell shows when the command is
/// made, and for an ID the exact name.
class STR_MOD_CMD : public Command
{
public:
    STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString text);
    /// The same for a cell that was changed before the command is made, such as the kind of a row by Push Resource: the
    /// flag is changed first, and then the command is run with both words. `shown` is what the cell showed before,
    /// which undo restores. The column must not be the ID column.
    STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString shown, QString text);
    bool Execute() override;
    bool Undo() override;

private:
    /// Finds the cell and calls `edit` with its current row and column to change it. `edit` returns a code.
    template <typename Edit> bool Apply(const Edit &edit);

    StringTable &table;
    RowMark mark;
    int col;
    qint32 language = -1; // of the column, whose index may have changed
    QString oldText;
    NarrowText oldId;
    QString newText;
};

/// Makes a new row from a text typed into the new-row line.
class STR_IST_CMD : public Command
{
public:
    STR_IST_CMD(StringTable &stringTable, int newRow, int cellCol, QString typed);
    bool Execute() override;
    bool Undo() override;

private:
    StringTable &table;
    RowMark mark;
    int col;
    qint32 language = -1; // as above
    QString text;
};

/// Deletes rows. Undo restores them at their places in the list and in the tree at the last deletion.
class STR_DEL_CMD : public Command
{
public:
    /// `toDelete` is ascending.
    STR_DEL_CMD(StringTable &stringTable, const std::vector<int> &toDelete);
    bool Execute() override;
    bool Undo() override;

private:
    struct Deleted
    {
        RowMark mark;
        Snapshot snapshot;
    };

    StringTable &table;
    std::vector<Deleted> rows; // ascending
};

/// Adds copies of the rows of the copy set at the end of the table.
class STR_PST_CMD : public Command
{
public:
    explicit STR_PST_CMD(StringTable &stringTable);
    bool Execute() override;
    bool Undo() override;

private:
    StringTable &table;
    std::map<int, Snapshot> snapshots;
    std::vector<RowMark> pastedRows;
};
