// SPDX-License-Identifier: MIT
#pragma once

#include "CListGrid.h"
#include "ListSettings.h"
#include "StringGridModel.h"

class CellEditor;
class ChoiceBox;
class IViewBoxes;

/// The widget of the string table: its columns, its order, and the editing of its cells in place. The table's history
/// runs the changes as commands.
class StringGrid : public CListGrid
{
public:
    /// All arguments must outlive this object. `types` are the kinds that the user can choose for a row.
    StringGrid(StringTable &stringTable, StringGridModel &gridModel, IViewBoxes &viewBoxes, Settings &settings,
               const QStringList &types);

    // Cells by their row in the model.
    /// Opens the editor over a cell if exactly one row is selected.
    void OpenCellEditor(int row, int col);
    /// Opens the list of kinds over the selected row if exactly one row is selected and it isn't the new-row line.
    void OpenTypeBox();
    /// Commits what is being edited. Returns false if the table refuses it: then a message is shown, and the editor
    /// opens again.
    bool TakeEdit();
    /// Moves the focus from that cell to the next gap, or to the previous one if `step` is -1. Returns false if there
    /// is none.
    bool GoToGap(int row, int col, int step);

    /// Sorts the rows by the sort state and shows it in the header.
    void SortRows();
    /// Sorts as a click on a header does: in the opposite direction if the rows are sorted by that column, otherwise
    /// ascending by it.
    void SortBy(int col);

    /// The number of selected rows, including the new-row line, and whether that line is selected. Cached, because it
    /// is asked often.
    struct SelectionCount
    {
        int rows = 0;
        bool hasNewRow = false;
    };
    [[nodiscard]] const SelectionCount &CountSelected();
    /// The rows of the table that are selected, ascending, without the new-row line.
    [[nodiscard]] std::vector<int> SelectedStrings() const;

    /// Gives the focus to the row that had it last, found by its ID, and selects that row if no row is selected. Does
    /// nothing if the row doesn't exist any more.
    void SelectLastRow();
    void HideColumn(int col, bool hide);

    /// The entries for widths and order to store in the settings.
    [[nodiscard]] QList<ProfileEntry> State() const;
    bool SaveState();

    /// Called when another cell gets the focus.
    std::function<void()> focusMoved;

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void dataChanged(const QModelIndex &first, const QModelIndex &last, const QList<int> &roles) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Connect();
    void ConnectEditor();
    void NoteSelection();
    void PutSelectionBack();
    void NoteFocus();
    void FitColumns();
    void RowsInserted(const QModelIndex &parent, int first, int last);
    void SelectWholeRows();
    /// Returns false if the table refuses the text.
    bool Commit(const QPersistentModelIndex &cell, QString text);
    void ReportCellError(int code, int row, int col);

    StringTable &table;
    StringGridModel &rows;
    IViewBoxes &boxes;
    ListSettings stored;
    int sortState;
    std::vector<int> widths; // of all columns that have existed
    std::vector<int> before; // the width of a column before it was hidden; 0 if none is known
    bool isFitting = false;
    CellEditor *editor;
    ChoiceBox *typeBox;
    std::vector<NarrowText> selectedIds; // kept during a reset of the model; empty for the new-row line
    bool isTableGoing = false;           // the next reset replaces the whole table
    NarrowText lastId;                   // of the row with the focus
    int lastRow = 0;                     // of the table
    int lastColumn = 0;
    int refusals = 0;
    std::optional<SelectionCount> selectionCount; // until the selection or the rows change
};
