#pragma once

#include "StringTable.h"

// The edits of a string table that can be taken back. Each holds what it needs in both directions and lets the table do
// the change. Rows are found again by number and ID: after a sort a command acts on the rows that it was made for, or
// not at all.

/// A row as a command knows it.
struct RowMark
{
    int row;
    NarrowText id;
};

/// Another text in a cell. Made before anything changes: it takes back to what the cell shows now.
class STR_MOD_CMD : public Command
{
public:
    STR_MOD_CMD(StringTable &stringTable, int cellRow, int cellCol, QString text);
    bool Execute() override { return Apply(newText); }
    bool Undo() override { return Apply(oldText); }

private:
    bool Apply(const QString &text);

    StringTable &table;
    RowMark mark;
    int col;
    qint32 language = -1; // of the column, which may have moved
    QString oldText;
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

/// Rows deleted.
class STR_DEL_CMD : public Command
{
public:
    /// `toDelete` is ascending. A row of which no snapshot can be made isn't brought back.
    STR_DEL_CMD(StringTable &stringTable, const std::vector<int> &toDelete);
    bool Execute() override;
    bool Undo() override;

private:
    StringTable &table;
    std::vector<RowMark> rows;
    std::map<int, Snapshot> snapshots;
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
