#pragma once

#include <vector>

class IViewBoxes;
class StringGrid;
class StringGridModel;
class StringTable;

/// Cells of the string table on the system's clipboard, as spreadsheets exchange them.
class CellClipboard
{
public:
    /// All must live longer.
    CellClipboard(StringTable &stringTable, StringGridModel &gridModel, StringGrid &stringGrid, IViewBoxes &viewBoxes)
        : table(stringTable), model(gridModel), grid(stringGrid), boxes(viewBoxes)
    {
    }

    /// The selected rows in the columns that show; the cell in focus alone where one row is selected.
    void Copy() const;
    /// Asks with a plan of what would change, and does it as one step that can be taken back.
    void Paste();

private:
    [[nodiscard]] std::vector<int> ShownColumns() const;

    StringTable &table;
    StringGridModel &model;
    StringGrid &grid;
    IViewBoxes &boxes;
};
