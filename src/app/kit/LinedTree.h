#pragma once

#include <QTreeWidget>

/// A tree with lines from an item to what is below it, as all panes and dialogs of the program have it.
class LinedTree : public QTreeWidget
{
public:
    using QTreeWidget::QTreeWidget;

protected:
    void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;
};
