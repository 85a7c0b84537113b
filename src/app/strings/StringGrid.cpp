// SPDX-License-Identifier: MIT
#include "StringGrid.h"

#include "CellEditor.h"
#include "ChoiceBox.h"
#include "ListCellDelegate.h"
#include "StringCommands.h"
#include "StringGaps.h"
#include "StringGridRules.h"
#include "StringOrder.h"
#include "ViewBoxes.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstdlib>

namespace
{

constexpr int CONTROL_ID = 1014;
constexpr int TEXT_WIDTH = 200; // pixels
constexpr int KIND_WIDTH = 100;

int DefaultWidth(int col)
{
    return col == StringTable::KIND_COLUMN ? KIND_WIDTH : TEXT_WIDTH;
}

} // namespace

StringGrid::StringGrid(StringTable &stringTable, StringGridModel &gridModel, IViewBoxes &viewBoxes, Settings &settings,
                       const QStringList &types)
    : table(stringTable), rows(gridModel), boxes(viewBoxes), stored(settings, CONTROL_ID),
      sortState(stored.SortState(1)), editor(new CellEditor(*this)), typeBox(new ChoiceBox(*this, types))
{
    setAccessibleName(QStringLiteral("Strings"));
    typeBox->setAccessibleName(QStringLiteral("Resource Type"));
    setModel(&rows);
    Connect();
    ConnectEditor();
    FitColumns();
}

void StringGrid::Connect()
{
    connect(&rows, &QAbstractItemModel::modelAboutToBeReset, this, &StringGrid::NoteSelection);
    connect(&rows, &QAbstractItemModel::modelReset, this, [this] {
        isTableGoing = false;
        FitColumns();
        PutSelectionBack();
    });
    connect(&rows, &QAbstractItemModel::columnsInserted, this, [this] {
        FitColumns();
        SelectWholeRows();
    });
    connect(&rows, &QAbstractItemModel::rowsInserted, this, &StringGrid::RowsInserted);
    connect(&rows, &QAbstractItemModel::columnsRemoved, this, [this](const QModelIndex &, int first, int last) {
        widths.erase(widths.begin() + first, widths.begin() + last + 1);
        before.erase(before.begin() + first, before.begin() + last + 1);
        (void)TakeEdit(); // its cell has moved or no longer exists
        SelectWholeRows();
    });
    const auto countAnew = [this] { selectionCount.reset(); };
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, countAnew);
    connect(&rows, &QAbstractItemModel::modelReset, this, countAnew);
    connect(&rows, &QAbstractItemModel::rowsInserted, this, countAnew);
    connect(&rows, &QAbstractItemModel::rowsRemoved, this, countAnew);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int col, int, int width) {
        if (!isFitting && size_t(col) < widths.size())
            widths[size_t(col)] = width;
    });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &StringGrid::SortBy);
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex &cell) { OpenCellEditor(cell.row(), cell.column()); });
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex &cell) {
        if (cell.column() == StringTable::KIND_COLUMN)
            OpenTypeBox();
        else
            typeBox->Commit();
    });
    rows.focusCell = [this](int row, int col) {
        const QModelIndex cell = rows.index(row, col);
        scrollTo(cell);
        selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    };
    rows.reportCellError = [this](int code, int row, int col) { ReportCellError(code, row, col); };
    rows.showMessage = [this](int code) {
        ++refusals;
        typeBox->Cancel();
        boxes.ShowMessage(StringEditMessage(code));
    };
    rows.tableGoes = [this] {
        isTableGoing = true;
        selectedIds.clear();
        editor->Cancel();
        typeBox->Cancel();
    };
}

void StringGrid::ConnectEditor()
{
    editor->committed = [this](const QPersistentModelIndex &cell, const QString &text) { return Commit(cell, text); };
    editor->target = [this](const QModelIndex &cell, CellStep step) {
        return NextCell({cell.row(), cell.column()}, step, rows.rowCount(), Widths());
    };
    editor->arrived = [this](CellAt cell) {
        const std::vector<int> selected = SelectedRows();
        if (selected != std::vector<int>{cell.row})
            SelectAlone(cell.row, cell.col);
        OpenCellEditor(cell.row, cell.col);
    };
    editor->committedToGoOn = [this](CellAt cell) {
        if (GoToGap(cell.row, cell.col, 1))
            OpenCellEditor(currentIndex().row(), currentIndex().column());
    };
    typeBox->chosen = [this](const QPersistentModelIndex &cell, const QString &choice) {
        if (!choice.isEmpty())
            (void)Commit(cell, choice);
    };
}

/// A row that is made at the end replaces the new-row line. If that line was selected or had the focus, the new row now
/// is selected or has the focus.
void StringGrid::RowsInserted(const QModelIndex &, int, int last)
{
    const QModelIndex newRow = rows.index(rows.rowCount() - 1, 0);
    if (rows.TableRow(last) != table.RowCount() - 1)
        return;
    const int focused = currentIndex().column();
    const bool hasFocus = currentIndex().row() == newRow.row();
    if (selectionModel()->isSelected(newRow)) {
        selectionModel()->select(newRow, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
        selectionModel()->select(rows.index(last, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    if (hasFocus)
        selectionModel()->setCurrentIndex(rows.index(last, focused), QItemSelectionModel::NoUpdate);
}

/// Keeps the selection, because a filter or a long command resets the model, which clears it.
void StringGrid::NoteSelection()
{
    selectedIds.clear();
    if (isTableGoing) // its rows can't be read
        return;
    for (const int row : SelectedRows()) {
        const CStringRes *const head = table.Head(rows.TableRow(row));
        selectedIds.push_back(head ? head->Id()->name : NarrowText());
    }
}

/// Selects the rows of the kept IDs that still exist and are shown. The new-row line has no ID.
void StringGrid::PutSelectionBack()
{
    std::vector<int> selected;
    for (const NarrowText &id : std::exchange(selectedIds, {})) {
        const int tableRow = id.isEmpty() ? table.RowCount() : table.RowOf(id, -1);
        if (const int row = rows.ShownRow(tableRow); row >= 0)
            selected.push_back(row);
    }
    std::sort(selected.begin(), selected.end());
    if (!selected.empty())
        Select(selected);
}

/// Gives new columns the widths that they had when they last existed, or the stored widths.
void StringGrid::FitColumns()
{
    const QScopedValueRollback fitting(isFitting, true);
    const int count = rows.columnCount();
    for (int col = int(widths.size()); col < count; ++col) {
        widths.push_back(stored.Width(col, DefaultWidth(col)));
        before.push_back(0);
    }
    for (int col = 0; col < count; ++col)
        horizontalHeader()->resizeSection(col, widths[size_t(col)]);
}

/// Selects the rows again. A new column isn't selected, and a removed column splits the selection of each row in two.
void StringGrid::SelectWholeRows()
{
    Select(SelectedRows());
}

void StringGrid::OpenCellEditor(int row, int col)
{
    typeBox->Commit();
    if (SelectedRows().size() != 1)
        return editor->Cancel();
    const QModelIndex cell = rows.index(row, col);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    const QVariant direction = cell.data(ROLE_DIRECTION);
    editor->Open(cell, cell.data(Qt::EditRole).toString(), TypingLimit(col),
                 direction.isNull() ? Qt::LeftToRight : Qt::LayoutDirection(direction.toInt()));
}

void StringGrid::OpenTypeBox()
{
    const std::vector<int> selected = SelectedRows();
    if (selected.size() != 1 || table.IsNewRow(rows.TableRow(selected.front())))
        return;
    const QModelIndex cell = rows.index(selected.front(), StringTable::KIND_COLUMN);
    (void)typeBox->Open(cell, cell.data(Qt::EditRole).toString());
}

bool StringGrid::TakeEdit()
{
    const int refused = refusals;
    editor->Commit();
    typeBox->Take(); // a step without a change would be undone next, and would clear the redo steps
    return refused == refusals;
}

bool StringGrid::Commit(const QPersistentModelIndex &cell, QString text)
{
    const int refused = refusals;
    text.remove(u'\t');
    const int row = rows.TableRow(cell.row());
    if (table.IsNewRow(row))
        table.history.Run(std::make_unique<STR_IST_CMD>(table, row, cell.column(), text));
    else
        table.history.Run(std::make_unique<STR_MOD_CMD>(table, row, cell.column(), text));
    return refused == refusals;
}

/// Shows the message after the key or click that caused the commit has been processed. Otherwise an editor that is
/// still visible, or opens now, would lose the focus to the box and be committed again.
void StringGrid::ReportCellError(int code, int row, int col)
{
    ++refusals;
    editor->Cancel();
    typeBox->Cancel();
    const QPersistentModelIndex cell = rows.index(row, col);
    boxes.ShowMessage(StringEditMessage(code), [grid = QPointer(this), cell] {
        if (!grid || !cell.isValid())
            return;
        grid->SelectAlone(cell.row(), cell.column());
        grid->OpenCellEditor(cell.row(), cell.column());
    });
}

bool StringGrid::GoToGap(int row, int col, int step)
{
    const int tableRow = rows.TableRow(row);
    const auto gap = NextGap(table, rows.ShownTableRows(), Widths(), tableRow, col, step);
    if (gap)
        SelectAlone(rows.ShownRow(gap->first), gap->second);
    return gap.has_value();
}

void StringGrid::SortRows()
{
    if (std::abs(sortState) > table.ColumnCount())
        return ShowSort(0);
    table.Reorder(StringOrder(table, sortState));
    ShowSort(sortState);
}

void StringGrid::SortBy(int col)
{
    editor->Commit();
    typeBox->Commit();
    sortState = ListSettings::NextSortState(sortState, col);
    SortRows();
}

const StringGrid::SelectionCount &StringGrid::CountSelected()
{
    if (selectionCount)
        return *selectionCount;
    SelectionCount &count = *(selectionCount = SelectionCount());
    const int newRow = rows.rowCount() - 1;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        count.rows += range.height();
        count.hasNewRow = count.hasNewRow || range.bottom() == newRow;
    }
    return count;
}

std::vector<int> StringGrid::SelectedStrings() const
{
    std::vector<int> strings;
    for (const int row : SelectedRows()) {
        if (const int tableRow = rows.TableRow(row); !table.IsNewRow(tableRow))
            strings.push_back(tableRow);
    }
    return strings;
}

void StringGrid::SelectLastRow()
{
    const int tableRow = lastId.isEmpty() ? -1 : table.RowOf(lastId, lastRow);
    const int row = tableRow < 0 ? -1 : rows.ShownRow(tableRow);
    if (row < 0)
        return;
    const int col = qMin(lastColumn, rows.columnCount() - 1);
    if (CountSelected().rows == 0)
        SelectAlone(row, col);
    else
        selectionModel()->setCurrentIndex(rows.index(row, col), QItemSelectionModel::NoUpdate);
}

void StringGrid::HideColumn(int col, bool hide)
{
    const int width = columnWidth(col);
    if (hide == (width == 0))
        return;
    if (hide)
        before[size_t(col)] = width;
    const int shown = before[size_t(col)] > 0 ? before[size_t(col)] : DefaultWidth(col);
    horizontalHeader()->resizeSection(col, hide ? 0 : shown);
}

QList<ProfileEntry> StringGrid::State() const
{
    const std::vector<int> now = Widths();
    return stored.State(QList<int>(now.begin(), now.end()), sortState);
}

bool StringGrid::SaveState()
{
    const std::vector<int> now = Widths();
    return stored.Save(QList<int>(now.begin(), now.end()), sortState);
}

void StringGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    CListGrid::currentChanged(current, previous);
    if (!current.isValid())
        return;
    NoteFocus();
    if (focusMoved)
        focusMoved();
}

void StringGrid::dataChanged(const QModelIndex &first, const QModelIndex &last, const QList<int> &roles)
{
    CListGrid::dataChanged(first, last, roles);
    if (currentIndex().row() >= first.row() && currentIndex().row() <= last.row())
        NoteFocus(); // its ID may have changed
}

void StringGrid::NoteFocus()
{
    lastColumn = currentIndex().column();
    lastRow = rows.TableRow(currentIndex().row());
    const CStringRes *const head = table.Head(lastRow);
    lastId = head ? head->Id()->name : NarrowText();
}

void StringGrid::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentIndex().isValid()) {
        if (CountSelected().rows == 1)
            SelectAlone(currentIndex().row(), currentIndex().column()); // Undo moves only the focus
        return OpenCellEditor(currentIndex().row(), currentIndex().column());
    }
    if (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier)) {
        scrollTo(currentIndex().siblingAtColumn(StringTable::KIND_COLUMN)); // without a click it may be out of sight
        return OpenTypeBox();
    }
    CListGrid::keyPressEvent(event);
}
