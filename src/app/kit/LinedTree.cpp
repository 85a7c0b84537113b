// SPDX-License-Identifier: MIT
#include "LinedTree.h"

#include "TreeLines.h"

#include <QHeaderView>
#include <QPainter>

/// Draws the lines, with room for the sign that opens and closes a row.
void LinedTree::drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const
{
    TreeLinesRow row{index.model()->hasChildren(index), !index.parent().isValid() && index.row() == 0, {}};
    for (QModelIndex each = index; each.isValid(); each = each.parent())
        row.goesOn.append(each.siblingAtRow(each.row() + 1).isValid());
    QColor color = palette().color(QPalette::Text);
    color.setAlphaF(0.3F);
    painter->save();
    painter->setPen(color);
    painter->drawLines(TreeLines(rect, indentation(), layoutDirection(), row));
    painter->restore();
    QTreeWidget::drawBranches(painter, rect, index);
}

QItemSelectionModel::SelectionFlags LinedTree::selectionCommand(const QModelIndex &index, const QEvent *event) const
{
    if (!index.isValid())
        return QItemSelectionModel::NoUpdate;
    const QItemSelectionModel::SelectionFlags flags = QTreeWidget::selectionCommand(index, event);
    return flags & (QItemSelectionModel::Toggle | QItemSelectionModel::Deselect) ? QItemSelectionModel::ClearAndSelect
                                                                                 : flags;
}

void LinedTree::ShowWholeLabels()
{
    setTextElideMode(Qt::ElideNone);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    const auto fit = [this] {
        if (updatesEnabled())
            FitColumn();
    };
    connect(this, &QTreeWidget::itemExpanded, this, fit);
    connect(this, &QTreeWidget::itemCollapsed, this, fit);
}

void LinedTree::FitColumn()
{
    header()->setMinimumSectionSize(sizeHintForColumn(0));
}
