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
    QString id; ///< as it is to be; empty for a default one
    bool push = false;
    std::vector<std::pair<int, QString>> texts; ///< by column, from the Description on
};

/// Several cells and new rows as one step, such as a paste from the clipboard or a replacement. All of it is done, or
/// nothing: what has been done before a failure is taken back.
class STR_SET_CMD : public Command
{
public:
    STR_SET_CMD(StringTable &stringTable, const std::vector<CellChange> &cellChanges, std::vector<NewRow> newRows);
    bool Execute() override;
    bool Undo() override;

private:
    StringTable &table;
};
