// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeWidget>

/// The tree that all panes and dialogs of the program use, with lines that connect its items. An item stays selected
/// until another one is selected.
class LinedTree : public QTreeWidget
{
public:
    using QTreeWidget::QTreeWidget;

    /// Shows the labels of its only column in full. The tree can be scrolled if they are wider than the view.
    void ShowWholeLabels();
    /// Makes the column as wide as the view, or as the longest label if that is wider. Must be called after labels have
    /// changed, and after items were opened while updates were disabled.
    void FitColumn();

protected:
    void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const override;
};
