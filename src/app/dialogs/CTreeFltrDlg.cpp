// SPDX-License-Identifier: MIT
#include "CTreeFltrDlg.h"

#include "LinedTree.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace
{

constexpr int NARROWEST = 200;
constexpr int ROWS = 15;

/// Gives rows the same height as in a list, so that the check boxes don't touch each other.
class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return {size.width(), qMax(size.height(), option.fontMetrics.height() + 6)};
    }
};

CheckTree::Item &ItemOf(const QTreeWidgetItem &row)
{
    return *static_cast<CheckTree::Item *>(row.data(0, Qt::UserRole).value<void *>());
}

} // namespace

CTreeFltrDlg::CTreeFltrDlg(ITreeFltrHelper &treeHelper, QWidget *parent)
    : CheckDialog(parent), helper(treeHelper), boxes(new LinedTree(this))
{
    boxes->setHeaderHidden(true);
    boxes->setUniformRowHeights(true);
    boxes->setItemDelegate(new RowDelegate(boxes));
    boxes->setAccessibleName(windowTitle());
    helper.InitTree(tree);
    tree.onCheck = [this](CResFolder *itemData, bool checked) { helper.OnCheck(itemData, checked); };
    for (CheckTree::Item &item : tree.items)
        Insert(boxes->invisibleRootItem(), item);
    boxes->expandAll();
    ShowChecks();
    boxes->setCurrentItem(boxes->topLevelItem(0));
    connect(boxes, &QTreeWidget::itemChanged, this, &CTreeFltrDlg::Turned);
    MakeContent(*boxes, tree.items.empty(), [this](bool checked) {
        tree.SetAll(checked);
        ShowChecks();
    });
    boxes->setFocus();
    FitRows();
}

/// Makes room for the longest text and some rows. If the text is too long for the screen, the tree can be scrolled.
void CTreeFltrDlg::FitRows()
{
    QHeaderView &header = *boxes->header();
    header.setStretchLastSection(false);
    boxes->resizeColumnToContents(0);
    header.setMinimumSectionSize(boxes->columnWidth(0));
    header.setStretchLastSection(true);
    const int rowHeight = boxes->visualItemRect(boxes->topLevelItem(0)).height();
    FitSize(*boxes, {qMax(NARROWEST, header.minimumSectionSize()), ROWS * rowHeight});
}

void CTreeFltrDlg::Insert(QTreeWidgetItem *parent, CheckTree::Item &item)
{
    auto *const row = new QTreeWidgetItem(parent);
    row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    row->setText(0, item.text);
    row->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<void *>(&item)));
    for (CheckTree::Item &child : item.children)
        Insert(row, child);
}

void CTreeFltrDlg::ShowChecks()
{
    const QScopedValueRollback filling(isFilling, true);
    for (QTreeWidgetItemIterator row(boxes); *row; ++row)
        (*row)->setCheckState(0, ItemOf(**row).checked ? Qt::Checked : Qt::Unchecked);
}

void CTreeFltrDlg::Turned(QTreeWidgetItem *row)
{
    if (isFilling)
        return;
    tree.SetCheckAll(ItemOf(*row), row->checkState(0) == Qt::Checked);
    ShowChecks();
}

void CTreeFltrDlg::accept()
{
    if (helper.Apply(tree))
        CheckDialog::accept();
}
