// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class IViewBoxes;
class StringGrid;
class StringGridModel;
class StringTable;

/// Copies and pastes cells of the string table through the system's clipboard, in the format that spreadsheets use.
class CellClipboard
{
public:
    /// All arguments must outlive this object.
    CellClipboard(StringTable &stringTable, StringGridModel &gridModel, StringGrid &stringGrid, IViewBoxes &viewBoxes)
        : table(stringTable), model(gridModel), grid(stringGrid), boxes(viewBoxes)
    {
    }

    /// Copies the selected rows in the visible columns, or only the cell with the focus if just one row is selected.
    void Copy() const;
    /// Shows the user a plan of what would change, and on agreement makes the changes as one step that can be undone.
    void Paste();

private:
    [[nodiscard]] std::vector<int> ShownColumns() const;

    StringTable &table;
    StringGridModel &model;
    StringGrid &grid;
    IViewBoxes &boxes;
};
