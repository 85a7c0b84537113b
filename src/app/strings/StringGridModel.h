// SPDX-License-Identifier: MIT
#pragma once

#include "Notifier.h"
#include "ShownRows.h"
#include "StringTable.h"

#include <QAbstractTableModel>

#include <functional>
#include <limits>
#include <optional>
#include <unordered_set>

class ProjectCheck;
struct Finding;

/// A window's string table as an item model: the rows that a filter shows, and the new-row line.
///
/// The rows of the model ("shown rows") are numbered without hidden rows; the rows of the table are numbered with them.
/// Without a filter these numbers are the same. Rows that are made or edited while there is a filter remain visible
/// until another filter is set.
class StringGridModel : public QAbstractTableModel, public IStringGrid
{
public:
    /// The model is empty until a table is set. The table must outlive the model, or be removed by setting null.
    void SetTable(StringTable *stringTable);

    /// Tells the check of changes of rows, and marks the cells with findings. It must outlive the model, or be removed
    /// by setting null. There must be no batch.
    void SetCheck(ProjectCheck *projectCheck);
    /// Returns whether cells with findings are marked.
    [[nodiscard]] bool IsChecked() const;

    // Requests of the table that the view carries out. Row numbers are those of the model.
    std::function<void(int row, int col)> focusCell;
    std::function<void(int code, int row, int col)> reportCellError;
    std::function<void(int code)> showMessage;
    /// Called before the whole table is replaced. What is being edited is discarded. The table must not be read then.
    std::function<void()> tableGoes;
    /// Called after any change that can affect which rows have gaps or meet a condition; once for a batch.
    std::function<void()> changed;

    /// Called after the marks of cells have changed, except for those of cells that have changed themselves.
    std::function<void()> marksChanged;

    /// Whether gaps are marked. The view sets it and repaints itself.
    bool showsGaps = false;

    /// Shows these rows of the table (ascending) and the new-row line, or all rows if there is no value. Resets the
    /// model.
    void SetFilter(std::optional<std::vector<int>> rows);
    [[nodiscard]] bool HasFilter() const { return shown.HasFilter(); }

    /// The row of the table that is shown at `row`. The last row is the new-row line.
    [[nodiscard]] int TableRow(int row) const;
    /// The shown row of a row of the table; -1 if the filter hides it.
    [[nodiscard]] int ShownRow(int tableRow) const;
    /// The rows of the table that are shown, ascending, without the new-row line.
    [[nodiscard]] std::vector<int> ShownTableRows() const;

    // QAbstractTableModel
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // IStringGrid
    void RowInserting(int row) override;
    void RowInserted(int row) override;
    void RowRemoving(int row) override;
    void RowRemoved(int row) override;
    void ColumnInserting(int col) override;
    void ColumnInserted(int col) override;
    void ColumnRemoving(int col) override;
    void ColumnRemoved(int col) override;
    void RowsMoving() override;
    void RowsMoved(const std::vector<int> &order) override;
    void TableResetting() override;
    void TableReset() override;
    void BatchBegins() override;
    void BatchEnds() override;
    void CellShows(int row, int col, const QString &text) override;
    void FocusCell(int row, int col) override;
    void ReportCellError(int code, int row, int col) override;
    void ShowMessage(int code) override;

private:
    /// What is deferred until the batch ends. Row numbers are those of the table.
    struct PutOff
    {
        int told = 0; // insertions and removals
        std::optional<std::pair<int, int>> focus;
        int firstTouched = std::numeric_limits<int>::max(); // the range of rows with changed cells, maybe empty
        int lastTouched = -1;
        bool hasChanged = false;
        std::unordered_set<const CStringRes *> toCheck; // the rows that have changed, by their heads
        void RowCame(int row);
        void RowWent(int row);
    };

    [[nodiscard]] int TableRows() const { return table ? table->RowCount() : 0; }
    /// Returns whether Qt must be told of an insertion or removal that is about to be made. Begins the reset of a
    /// batch.
    [[nodiscard]] bool IsTold();
    void BeginReset();
    void EndReset();
    void HasChanged();
    /// Emits the signal that cells of these rows of the table have changed.
    void TellCells(int firstRow, int lastRow);
    void Reveal(int tableRow);
    void TakeDirections();
    void CheckRow(int tableRow);
    void TellMarks();
    [[nodiscard]] std::vector<const Finding *> FindingsOf(int tableRow, int col) const;
    /// The text of a cell as the grid shows it.
    [[nodiscard]] QString Line(int tableRow, int col) const;
    [[nodiscard]] QString Accessible(int tableRow, int col) const;
    [[nodiscard]] bool IsMarkedGap(int tableRow, int col) const;

    StringTable *table = nullptr;
    ProjectCheck *check = nullptr;
    std::optional<Notifier<>::Listener> checkChanged;
    ShownRows shown;
    std::optional<PutOff> batch; // the open batch
    bool isInReset = false;
    bool isTelling = false;                      // an insertion or removal of a row is being announced
    std::vector<Qt::LayoutDirection> directions; // one for each column
};
