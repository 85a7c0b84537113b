// SPDX-License-Identifier: MIT
#include "CheckListModel.h"

CheckListModel::CheckListModel(CheckList &checkList, QObject *parent) : QAbstractTableModel(parent), list(checkList) {}

void CheckListModel::SetAll(bool checked)
{
    if (list.rows.empty())
        return;
    list.SetAll(checked);
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
}

void CheckListModel::Sort(int sortState, const std::function<int(qint32, qint32, int)> &compare)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<int> order = list.Sort(sortState, compare);
    std::vector<int> rowNow(order.size());
    for (size_t row = 0; row < order.size(); ++row)
        rowNow[size_t(order[row])] = int(row);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList now;
    for (const QModelIndex &each : before)
        now.append(index(rowNow[size_t(each.row())], each.column()));
    changePersistentIndexList(before, now);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

int CheckListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(list.rows.size());
}

int CheckListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(list.columns.size());
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return index.column() == 0 ? usual | Qt::ItemIsUserCheckable : usual;
}

QVariant CheckListModel::data(const QModelIndex &index, int role) const
{
    const CheckList::Row &row = list.rows[size_t(index.row())];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return row.texts.value(index.column());
    if (role == Qt::CheckStateRole && index.column() == 0)
        return row.checked ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool CheckListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != 0)
        return false;
    list.SetChecked(size_t(index.row()), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {role});
    return true;
}

QVariant CheckListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return list.columns[size_t(section)].title;
}
