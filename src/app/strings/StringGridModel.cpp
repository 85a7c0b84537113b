// SPDX-License-Identifier: MIT
#include "StringGridModel.h"

#include "CellFindings.h"
#include "CellLine.h"
#include "ListCellDelegate.h"
#include "LiteralTip.h"
#include "ProjectCheck.h"
#include "StringGaps.h"
#include "TextDirection.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int MOST_TOLD = 100; // insertions and removals of a batch, before a reset is faster

} // namespace

void StringGridModel::PutOff::RowCame(int row)
{
    if (focus && focus->first >= row)
        ++focus->first;
    if (firstTouched > lastTouched)
        return;
    firstTouched += firstTouched >= row ? 1 : 0;
    lastTouched += lastTouched >= row ? 1 : 0;
}

void StringGridModel::PutOff::RowWent(int row)
{
    if (focus && focus->first > row)
        --focus->first;
    if (firstTouched > lastTouched)
        return;
    firstTouched -= firstTouched > row ? 1 : 0;
    lastTouched -= lastTouched >= row ? 1 : 0;
}

void StringGridModel::SetTable(StringTable *stringTable)
{
    beginResetModel();
    table = stringTable;
    shown.Set(std::nullopt);
    TakeDirections();
    endResetModel();
}

void StringGridModel::SetCheck(ProjectCheck *projectCheck)
{
    check = projectCheck;
    checkChanged.reset();
    if (check)
        checkChanged.emplace(check->changed, [this] { TellMarks(); });
}

bool StringGridModel::IsChecked() const
{
    return check && check->IsOn();
}

void StringGridModel::SetFilter(std::optional<std::vector<int>> rows)
{
    if (!isInReset)
        beginResetModel();
    shown.Set(std::move(rows));
    if (!isInReset)
        endResetModel();
}

int StringGridModel::TableRow(int row) const
{
    return shown.TableRow(row, TableRows());
}

int StringGridModel::ShownRow(int tableRow) const
{
    return shown.ShownRow(tableRow, TableRows());
}

std::vector<int> StringGridModel::ShownTableRows() const
{
    std::vector<int> rows(size_t(shown.Count(TableRows())));
    for (size_t row = 0; row < rows.size(); ++row)
        rows[row] = TableRow(int(row));
    return rows;
}

int StringGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !table ? 0 : shown.Count(table->RowCount()) + 1;
}

int StringGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !table ? 0 : table->ColumnCount();
}

QVariant StringGridModel::data(const QModelIndex &index, int role) const
{
    if (!table || !index.isValid())
        return {};
    const int row = TableRow(index.row());
    const int col = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return Line(row, col);
    case Qt::EditRole:
        return table->CellText(row, col);
    case Qt::ToolTipRole: {
        const QString text = table->CellText(row, col);
        return Line(row, col) == text ? QVariant() : LiteralTip(text);
    }
    case Qt::AccessibleTextRole:
        return Accessible(row, col);
    case ROLE_MARK:
        return MarkOf(FindingsOf(row, col));
    case ROLE_FINDINGS:
        return FindingLines(FindingsOf(row, col)).join(u'\n');
    case ROLE_IS_GAP:
        return IsMarkedGap(row, col);
    case ROLE_DIRECTION:
        return directions.at(size_t(col)) == Qt::RightToLeft ? QVariant::fromValue(Qt::RightToLeft) : QVariant();
    default:
        return {};
    }
}

QVariant StringGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (!table || orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return table->ColumnTitle(section);
}

QString StringGridModel::Line(int tableRow, int col) const
{
    return col < StringTable::DESCRIPTION_COLUMN ? CellLine(table->CellText(tableRow, col), LONGEST_SHOWN)
                                                 : CellLine(table->CellView(tableRow, col), LONGEST_SHOWN);
}

QString StringGridModel::Accessible(int tableRow, int col) const
{
    QString text = IsMarkedGap(tableRow, col) ? u"(no text)"_s : Line(tableRow, col);
    for (const QString &finding : FindingLines(FindingsOf(tableRow, col)))
        text += u"; "_s + finding;
    return table->CellText(tableRow, StringTable::ID_COLUMN) + u", "_s + table->ColumnTitle(col) + u": "_s + text;
}

std::vector<const Finding *> StringGridModel::FindingsOf(int tableRow, int col) const
{
    return IsChecked() ? FindingsOfCell(*check, *table, tableRow, col) : std::vector<const Finding *>();
}

/// Has a row checked that has changed; in a batch, once at its end.
void StringGridModel::CheckRow(int tableRow)
{
    const CStringRes *const head = IsChecked() ? table->Head(tableRow) : nullptr;
    if (!head)
        return;
    if (batch)
        batch->toCheck.insert(head);
    else
        check->RowChanged(*head);
}

void StringGridModel::TellMarks()
{
    if (isInReset || !table)
        return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1),
                       {ROLE_MARK, ROLE_FINDINGS, Qt::AccessibleTextRole});
    if (marksChanged)
        marksChanged();
}

bool StringGridModel::IsMarkedGap(int tableRow, int col) const
{
    return showsGaps && !table->IsNewRow(tableRow) && IsGap(*table, tableRow, col);
}

void StringGridModel::TakeDirections()
{
    directions.assign(table ? size_t(table->ColumnCount()) : 0, Qt::LeftToRight);
    for (size_t col = StringTable::FIRST_LANGUAGE_COLUMN; col < directions.size(); ++col)
        directions[col] = DirectionOfLanguage(table->ColumnTitle(int(col)));
}

bool StringGridModel::IsTold()
{
    if (!isInReset && batch && ++batch->told > MOST_TOLD)
        BeginReset();
    return !isInReset;
}

void StringGridModel::BeginReset()
{
    if (!std::exchange(isInReset, true))
        beginResetModel();
}

void StringGridModel::EndReset()
{
    if (std::exchange(isInReset, false))
        endResetModel();
}

void StringGridModel::HasChanged()
{
    if (batch)
        batch->hasChanged = true;
    else if (changed)
        changed();
}

void StringGridModel::RowInserting(int row)
{
    isTelling = IsTold();
    if (isTelling)
        beginInsertRows({}, shown.PlaceOf(row), shown.PlaceOf(row));
}

void StringGridModel::RowInserted(int row)
{
    shown.Insert(row);
    CheckRow(row);
    if (batch)
        batch->RowCame(row);
    if (std::exchange(isTelling, false))
        endInsertRows();
    HasChanged();
}

void StringGridModel::RowRemoving(int row)
{
    if (const CStringRes *const head = IsChecked() ? table->Head(row) : nullptr) {
        if (batch)
            batch->toCheck.erase(head);
        check->RowGoes(*head);
    }
    const int place = ShownRow(row);
    isTelling = place >= 0 && IsTold();
    if (isTelling)
        beginRemoveRows({}, place, place);
}

void StringGridModel::RowRemoved(int row)
{
    shown.Remove(row);
    if (batch)
        batch->RowWent(row);
    if (std::exchange(isTelling, false))
        endRemoveRows();
    HasChanged();
}

void StringGridModel::ColumnInserting(int col)
{
    if (!isInReset)
        beginInsertColumns({}, col, col);
}

void StringGridModel::ColumnInserted(int)
{
    TakeDirections();
    if (!isInReset)
        endInsertColumns();
    if (check)
        check->CheckAgain();
    HasChanged();
}

void StringGridModel::ColumnRemoving(int col)
{
    if (!isInReset)
        beginRemoveColumns({}, col, col);
}

void StringGridModel::ColumnRemoved(int)
{
    TakeDirections();
    if (!isInReset)
        endRemoveColumns();
    HasChanged();
}

void StringGridModel::RowsMoving()
{
    if (!isInReset)
        Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
}

void StringGridModel::RowsMoved(const std::vector<int> &order)
{
    std::vector<int> now(order.size() + 1, int(order.size())); // the new-row line keeps its place
    for (size_t row = 0; row < order.size(); ++row)
        now[size_t(order[row])] = int(row);
    if (batch && batch->focus)
        batch->focus->first = now[size_t(batch->focus->first)];
    const QModelIndexList from = isInReset ? QModelIndexList() : persistentIndexList();
    std::vector<int> rows;
    for (const QModelIndex &old : from)
        rows.push_back(now[size_t(TableRow(old.row()))]);
    shown.Reorder(order);
    if (isInReset)
        return;
    QModelIndexList to;
    for (qsizetype i = 0; i < from.size(); ++i)
        to.append(index(ShownRow(rows[size_t(i)]), from[i].column()));
    changePersistentIndexList(from, to);
    if (batch) { // a view reads all cells again
        batch->firstTouched = std::numeric_limits<int>::max();
        batch->lastTouched = -1;
    }
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void StringGridModel::TableResetting()
{
    if (tableGoes)
        tableGoes();
    BeginReset();
}

void StringGridModel::TableReset()
{
    shown.Set(std::nullopt);
    TakeDirections();
    if (batch) {
        batch->focus.reset();
        if (!batch->toCheck.empty())
            check->CheckAgain(); // these rows may be gone
        batch->toCheck.clear();
    } else {
        EndReset();
    }
    HasChanged();
}

void StringGridModel::BatchBegins()
{
    batch = PutOff();
}

void StringGridModel::BatchEnds()
{
    const PutOff ended = *std::exchange(batch, std::nullopt);
    for (const CStringRes *head : ended.toCheck)
        check->RowChanged(*head);
    if (isInReset)
        EndReset();
    else
        TellCells(ended.firstTouched, ended.lastTouched);
    if (ended.focus && focusCell) // if the row no longer exists, the one that follows it
        focusCell(shown.PlaceOf(ended.focus->first), ended.focus->second);
    if (ended.hasChanged)
        HasChanged();
}

void StringGridModel::TellCells(int firstRow, int lastRow)
{
    if (firstRow > lastRow)
        return;
    const int first = shown.PlaceOf(firstRow);
    const int last = shown.PlaceOf(lastRow + 1) - 1;
    // The accessible name of a cell, and whether it is a gap, depend on the other cells of its row.
    if (first <= last)
        Q_EMIT dataChanged(index(first, 0), index(last, table->ColumnCount() - 1));
}

void StringGridModel::CellShows(int row, int, const QString &)
{
    CheckRow(row);
    if (batch) {
        batch->firstTouched = std::min(batch->firstTouched, row);
        batch->lastTouched = std::max(batch->lastTouched, row);
    } else if (!isInReset) {
        TellCells(row, row);
    }
    HasChanged();
}

void StringGridModel::Reveal(int tableRow)
{
    if (tableRow < 0 || tableRow >= TableRows() || ShownRow(tableRow) >= 0)
        return;
    const bool isTold = IsTold();
    const int place = shown.PlaceOf(tableRow);
    if (isTold)
        beginInsertRows({}, place, place);
    shown.Show(tableRow);
    if (isTold)
        endInsertRows();
}

void StringGridModel::FocusCell(int row, int col)
{
    Reveal(row);
    if (batch)
        batch->focus = {row, col};
    else if (focusCell)
        focusCell(ShownRow(row), col);
}

void StringGridModel::ReportCellError(int code, int row, int col)
{
    Reveal(row);
    if (reportCellError)
        reportCellError(code, ShownRow(row), col);
}

void StringGridModel::ShowMessage(int code)
{
    if (showMessage)
        showMessage(code);
}
