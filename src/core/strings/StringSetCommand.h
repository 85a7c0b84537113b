#pragma once

#include "StringCommands.h"

/// A text for a cell of a row that is there.
struct CellChange
{
    int row;
    int col; ///< not that of the ID
    QString text;
};

/// A row to be made at the end of the table.
struct NewRow
{
    QString id; ///< as it is to be, not tested yet; empty for a default one
    bool push = false;
    std::vector<std::pair<int, QString>> texts; ///< by column, from the Description on
};

/// Several cells and new rows as one step, such as a paste from the clipboard or a replacement. All of it is done, or
/// nothing: what has been done before a failure is taken back. The rows come back under the same names.
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
        qint32 language; // of the column, which may have moved
        QString text;    // what the cell is to show next: Execute and Undo exchange it for what it shows
    };
    struct Row
    {
        RowMark mark;
        std::vector<Text> texts;
    };

    // Both change nothing in the table; after them only the ID of a new row can fail.
    [[nodiscard]] int FindRows(std::vector<Row> &rows) const;
    [[nodiscard]] int FindColumns(const std::vector<Row> &rows) const;
    /// All or none.
    [[nodiscard]] int AddRows();
    void Exchange(Row &row, Text &text);

    StringTable &table;
    std::vector<Row> changed; // a row may be there several times
    std::vector<Row> added;   // the first Execute makes the IDs that aren't given
};
