// SPDX-License-Identifier: MIT
#include "CListFltrDlg.h"

#include "CListGrid.h"
#include "CheckListModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace
{

constexpr int CONTROL = 1002;
constexpr int COLUMN_WIDTH = 150;
constexpr int ROWS = 15;

/// Draws the boxes. The grid itself draws the focus around the whole row.
class CheckDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state &= ~QStyle::State_HasFocus;
    }
};

} // namespace

CListFltrDlg::CListFltrDlg(IListFltrHelper &listHelper, Settings &programSettings, QWidget *parent)
    : CheckDialog(parent), helper(listHelper), stored(programSettings, CONTROL), grid(new CListGrid(this)),
      sortState(stored.SortState(0))
{
    helper.InitList(list);
    list.onCheck = [this](qint32 itemData, bool checked) { helper.OnCheck(itemData, checked); };
    model = new CheckListModel(list, this);
    if (!list.CanSort(sortState))
        sortState = 0;
    MakeGrid();
    MakeContent(*grid, list.rows.empty(), [this](bool checked) { model->SetAll(checked); });
    Sort();
    FitRows();
}

void CListFltrDlg::MakeGrid()
{
    grid->setModel(model);
    grid->setItemDelegate(new CheckDelegate(grid));
    grid->setAccessibleName(list.columns.empty() ? windowTitle() : list.columns.front().title);
    grid->installEventFilter(this);
    for (int column = 0; column < int(list.columns.size()); ++column)
        grid->setColumnWidth(column, stored.Width(column, COLUMN_WIDTH));
    connect(grid->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) { SortBy(column); });
}

/// Makes room for the columns and some rows.
void CListFltrDlg::FitRows()
{
    const QHeaderView &header = *grid->horizontalHeader();
    FitSize(*grid, {header.length(), header.sizeHint().height() + ROWS * grid->verticalHeader()->defaultSectionSize()});
}

void CListFltrDlg::Sort()
{
    model->Sort(sortState, [this](qint32 a, qint32 b, int column) { return helper.Compare(a, b, column); });
    grid->ShowSort(sortState);
    if (!grid->currentIndex().isValid() && !list.rows.empty())
        grid->SelectAlone(0, 0);
}

void CListFltrDlg::SortBy(int column)
{
    sortState = ListSettings::NextSortState(sortState, column);
    Sort();
}

void CListFltrDlg::Toggle()
{
    const QModelIndex current = grid->currentIndex();
    if (!current.isValid())
        return;
    const bool checked = !list.rows[size_t(current.row())].checked;
    const Qt::CheckState state = checked ? Qt::Checked : Qt::Unchecked;
    model->setData(current.siblingAtColumn(0), state, Qt::CheckStateRole);
    for (const int row : grid->SelectedRows())
        model->setData(model->index(row, 0), state, Qt::CheckStateRole);
}

/// Space inverts the check whichever column has the focus.
bool CListFltrDlg::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == grid && event->type() == QEvent::KeyPress) {
        const auto *const key = static_cast<QKeyEvent *>(event);
        if ((key->key() == Qt::Key_Space || key->key() == Qt::Key_Select) && key->modifiers() == Qt::NoModifier) {
            Toggle();
            return true;
        }
    }
    return CheckDialog::eventFilter(watched, event);
}

void CListFltrDlg::accept()
{
    if (helper.Apply(list))
        CheckDialog::accept();
}

void CListFltrDlg::done(int result)
{
    const std::vector<int> widths = grid->Widths();
    (void)stored.Save(QList<int>(widths.begin(), widths.end()), sortState);
    CheckDialog::done(result);
}
