#pragma once

#include <QTreeWidget>

/// A tree with lines from an item to what is below it, as all panes and dialogs of the program have it. Nothing takes
/// the selection away but another item.
class LinedTree : public QTreeWidget
{
public:
    using QTreeWidget::QTreeWidget;

    /// Shows the labels of its only column whole: what is wider than the view scrolls.
    void ShowWholeLabels();
    /// Makes the column as wide as the view, and wider where the longest label is. To be called after labels have
    /// changed, and after items were opened while updates were disabled.
    void FitColumn();

protected:
    void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const override;
};
