#pragma once

#include "CListGrid.h"
#include "ListSettings.h"
#include "StringGridModel.h"

class CellEditor;
class ChoiceBox;
class IViewBoxes;

/// The list of the string table: its columns, its order, and the editing of its cells in place. Changes are commands
/// that the table's history runs.
class StringGrid : public CListGrid
{
public:
    /// All must live longer. `types` are the kinds of a row to choose from.
    StringGrid(StringTable &stringTable, StringGridModel &gridModel, IViewBoxes &viewBoxes, Settings &settings,
               const QStringList &types);

    // Cells by their row in the model.
    /// Opens the editor over a cell, if exactly one row is selected.
    void OpenCellEditor(int row, int col);
    /// Opens the list of kinds over the selected row, if exactly one is selected and it isn't the new-row line.
    void OpenTypeBox();
    /// Commits what is being edited. False when the table refuses it: a message follows, and then the editor opens
    /// again.
    bool TakeEdit();
    /// The next gap from that cell on, or the one before for a `step` of -1, gets the focus. False when there is none.
    bool GoToGap(int row, int col, int step);

    /// Sorts the rows by the sort state, and shows it in the header.
    void SortRows();
    /// A click on a header: another direction for the column of the present order, else ascending by that column.
    void SortBy(int col);

    /// How many rows are selected, the new-row line too, and whether that is one of them. Is asked often.
    struct SelectionCount
    {
        int rows = 0;
        bool hasNewRow = false;
    };
    [[nodiscard]] const SelectionCount &CountSelected();
    /// The rows of the table that are selected, ascending, without the new-row line.
    [[nodiscard]] std::vector<int> SelectedStrings() const;

    /// Gives the row that was in focus last the focus, by its ID, and selects it if no row is selected. Nothing where
    /// it has gone.
    void SelectLastRow();
    void HideColumn(int col, bool hide);

    /// What the settings are to remember of widths and order.
    [[nodiscard]] QList<ProfileEntry> State() const;
    bool SaveState();

    /// Told of another cell in focus.
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
    /// False when the table refuses the text.
    bool Commit(const QPersistentModelIndex &cell, QString text);
    void ReportCellError(int code, int row, int col);

    StringTable &table;
    StringGridModel &rows;
    IViewBoxes &boxes;
    ListSettings stored;
    int sortState;
    std::vector<int> widths; // of the columns that were there at any time
    std::vector<int> before; // the width of a column before it was hidden, 0: none
    bool isFitting = false;
    CellEditor *editor;
    ChoiceBox *typeBox;
    std::vector<NarrowText> selectedIds; // during a reset of the model; empty ones for the new-row line
    bool isTableGoing = false;           // the next reset is one of the whole table
    NarrowText lastId;                   // of the row in focus
    int lastRow = 0;                     // of the table
    int lastColumn = 0;
    int refusals = 0;
    std::optional<SelectionCount> selectionCount; // until the selection or the rows change
};
