#pragma once

#include "ShownRows.h"
#include "StringTable.h"

#include <QAbstractTableModel>

#include <functional>
#include <limits>
#include <optional>

/// The string table of a window as an item model: the rows that a filter leaves, and the new-row line.
///
/// A row of the model ("shown row") counts the rows that are shown; a row of the table counts all. Without a filter
/// they are the same. Rows that are made or edited while there is a filter stay in sight until another filter is set.
class StringGridModel : public QAbstractTableModel, public IStringGrid
{
public:
    /// Until a table is set the model is empty. It must live longer, or be taken away again.
    void SetTable(StringTable *stringTable);

    // What the view does of what the table asks for. Row numbers are those of the model.
    std::function<void(int row, int col)> focusCell;
    std::function<void(int code, int row, int col)> reportCellError;
    std::function<void(int code)> showMessage;
    /// Before the whole table is replaced: what is being edited is lost. The table must not be asked.
    std::function<void()> tableGoes;
    /// After anything that may change which rows have gaps or meet a condition; once for a batch.
    std::function<void()> changed;

    /// Whether gaps are marked. The view sets it, and draws itself anew.
    bool showsGaps = false;

    /// Shows these rows of the table (ascending) and the new-row line; nothing: all. Told to Qt as a reset.
    void SetFilter(std::optional<std::vector<int>> rows);
    [[nodiscard]] bool HasFilter() const { return shown.HasFilter(); }

    /// The row of the table that is shown at `row`; the new-row line for the last.
    [[nodiscard]] int TableRow(int row) const;
    /// Where a row of the table is shown; -1 where the filter hides it.
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
    /// What is put off until the batch ends. Rows are those of the table.
    struct PutOff
    {
        int told = 0; // insertions and removals
        std::optional<std::pair<int, int>> focus;
        int firstTouched = std::numeric_limits<int>::max(); // rows with cells that changed, if not above the last
        int lastTouched = -1;
        bool hasChanged = false;
        void RowCame(int row);
        void RowWent(int row);
    };

    [[nodiscard]] int TableRows() const { return table ? table->RowCount() : 0; }
    /// Whether Qt is told of an insertion or removal that is going to be made. Begins the reset of a batch.
    [[nodiscard]] bool IsTold();
    void BeginReset();
    void EndReset();
    void HasChanged();
    /// Tells that cells of these rows of the table have changed.
    void TellCells(int firstRow, int lastRow);
    void Reveal(int tableRow);
    void TakeDirections();
    [[nodiscard]] QString Accessible(int tableRow, int col) const;
    [[nodiscard]] bool IsMarkedGap(int tableRow, int col) const;

    StringTable *table = nullptr;
    ShownRows shown;
    std::optional<PutOff> batch; // the one that is open
    bool isInReset = false;
    bool isTelling = false;                      // of a row that is coming or going
    std::vector<Qt::LayoutDirection> directions; // of the columns
};
