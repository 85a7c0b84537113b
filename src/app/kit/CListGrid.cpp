// SPDX-License-Identifier: MIT
#include "CListGrid.h"

#include "CopyGuard.h"
#include "ListCellDelegate.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

CListGrid::CListGrid(QWidget *parent) : QTableView(parent)
{
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setTabKeyNavigation(false); // Tab moves the focus out of the list
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setItemDelegate(new ListCellDelegate(this));
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView *const header = horizontalHeader();
    header->setMinimumSectionSize(0);
    header->setResizeContentsPrecision(0); // a double click on an edge fits the visible rows
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setHighlightSections(false);
    header->setSectionsClickable(true);
    new CopyGuard(*this);
    SetIconSide(16);
}

void CListGrid::SetIconSide(int side)
{
    setIconSize(QSize(side, side));
    FitRows();
}

void CListGrid::FitRows()
{
    verticalHeader()->setMinimumSectionSize(1);
    const int ofIcon = iconSize().height() > 16 ? iconSize().height() + 8 : 0; // a 16-pixel icon fits into any row
    verticalHeader()->setDefaultSectionSize(qMax(fontMetrics().height() + 6, ofIcon));
}

void CListGrid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitRows();
}

void CListGrid::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isInList = event->reason() == QContextMenuEvent::Keyboard || viewport()->rect().contains(event->pos());
    if (menuWanted && isInList)
        menuWanted(*event);
}

std::vector<int> CListGrid::SelectedRows() const
{
    std::vector<int> rows;
    if (!selectionModel())
        return rows;
    // Uses the ranges: selectedRows takes seconds for a large selection.
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void CListGrid::SelectAlone(int row, int col)
{
    // Doesn't use selectRow, which reads the keyboard and extends the selection while Shift is held.
    selectionModel()->setCurrentIndex(model()->index(row, col),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void CListGrid::Select(const std::vector<int> &rows)
{
    QItemSelection selection;
    const int last = model()->columnCount() - 1;
    for (size_t i = 0; i < rows.size();) {
        size_t end = i + 1;
        while (end < rows.size() && rows[end] == rows[end - 1] + 1)
            ++end;
        selection.append(QItemSelectionRange(model()->index(rows[i], 0), model()->index(rows[end - 1], last)));
        i = end;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

std::vector<int> CListGrid::Widths() const
{
    std::vector<int> widths;
    for (int col = 0; col < horizontalHeader()->count(); ++col)
        widths.push_back(horizontalHeader()->sectionSize(col));
    return widths;
}

void CListGrid::ShowSort(int sortState)
{
    const int col = std::abs(sortState) - 1;
    horizontalHeader()->setSortIndicatorShown(sortState != 0 && col < horizontalHeader()->count());
    horizontalHeader()->setSortIndicator(col, sortState < 0 ? Qt::DescendingOrder : Qt::AscendingOrder);
}

/// Typed letters search for a row by its first column, whichever column has the focus.
void CListGrid::keyboardSearch(const QString &search)
{
    const QModelIndex before = currentIndex();
    if (!before.isValid())
        return QTableView::keyboardSearch(search);
    selectionModel()->setCurrentIndex(before.siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    QTableView::keyboardSearch(search);
    selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(before.column()), QItemSelectionModel::NoUpdate);
}

/// The focus belongs to a row, so its frame is drawn around the row.
void CListGrid::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    const QModelIndex current = currentIndex();
    if (!current.isValid() || !hasFocus())
        return;
    const bool isSelected = selectionModel()->isSelected(current);
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Active, isSelected ? QPalette::HighlightedText : QPalette::Text), 1,
                        Qt::DotLine));
    painter.drawRect(RowRect(current.row()).adjusted(0, 0, -1, -2)); // inside the grid lines
}

QRect CListGrid::RowRect(int row) const
{
    const QHeaderView &header = *horizontalHeader();
    const int left = isRightToLeft() ? viewport()->width() + header.offset() - header.length() : -header.offset();
    return {left, rowViewportPosition(row), header.length(), rowHeight(row)};
}

/// Repaints the rows, because the frame surrounds the row; the view itself repaints only two cells.
void CListGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    for (const QModelIndex &each : {current, previous}) {
        if (each.isValid())
            viewport()->update(RowRect(each.row()));
    }
}
