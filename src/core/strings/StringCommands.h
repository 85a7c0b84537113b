#pragma once

#include "CommandMarks.h"

// The edits of a string table that can be taken back. Each holds what it needs in both directions and lets the table do
// the change. Rows are found again by number and ID: after a sort a command acts on the rows that it was made for, or
// not at all.

/// Another text in a cell. Made before anything changes: it takes back to what the cell shows now, an ID to the exact
/// one.
class STR_MOD_CMD : public Command
{
public:
    STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString text);
    /// The same for a cell that has changed before the command is made, as the kind of a row for Push Resource: first
    /// the flag is flipped, then the command is run with both words. `shown` is what the cell showed until then, and
    /// what undo takes back to. The column must not be that of the ID.
    STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString shown, QString text);
    bool Execute() override;
    bool Undo() override;

private:
    /// Finds the cell and lets `edit` change it: a call with its row and column now that gives a code.
    template <typename Edit> bool Apply(const Edit &edit);

    StringTable &table;
    RowMark mark;
    int col;
    qint32 language = -1; // of the column, which may have moved
    QString oldText;
    NarrowText oldId;
    QString newText;
};

/// A new row from a text typed into the new-row line.
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

/// Rows deleted. Undo brings them back where they were when they were deleted last, in the list and in the tree.
class STR_DEL_CMD : public Command
{
public:
    /// `toDelete` is ascending. A row of which no snapshot can be made isn't brought back.
    STR_DEL_CMD(StringTable &stringTable, const std::vector<int> &toDelete);
    bool Execute() override;
    bool Undo() override;

private:
    struct Deleted
    {
        RowMark mark;
        Snapshot snapshot; // without a head: none could be made
    };

    StringTable &table;
    std::vector<Deleted> rows; // ascending
};

/// Copies of the rows of the copy set, at the end of the table.
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
