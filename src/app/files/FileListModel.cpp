// SPDX-License-Identifier: MIT
#include "FileListModel.h"

#include "CellLine.h"

using namespace Qt::StringLiterals;

void FileListModel::SetList(const FileList *fileList)
{
    beginResetModel();
    list = fileList;
    endResetModel();
}

void FileListModel::PicturesChanged()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::DecorationRole});
}

int FileListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !list ? 0 : list->RowCount();
}

int FileListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : FileList::COLUMN_COUNT;
}

QVariant FileListModel::data(const QModelIndex &index, int role) const
{
    if (!list || !index.isValid())
        return {};
    const int row = index.row();
    const int col = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return CellLine(list->CellText(row, col), LONGEST_SHOWN);
    case Qt::EditRole:
        return list->CellText(row, col);
    case Qt::DecorationRole:
        return col == FileList::ID_COLUMN && pictureOf ? pictureOf(row) : QVariant();
    case Qt::ToolTipRole:
        return tipOf ? tipOf(row) : QVariant();
    case Qt::AccessibleTextRole:
        return list->CellText(row, FileList::ID_COLUMN) + u", "_s + FileList::ColumnTitle(col) + u": "_s +
               CellLine(list->CellText(row, col), LONGEST_SHOWN);
    default:
        return {};
    }
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return FileList::ColumnTitle(section);
}

void FileListModel::RowsChanged(int first, int last)
{
    Q_EMIT dataChanged(index(first, 0), index(last, FileList::COLUMN_COUNT - 1));
}

void FileListModel::OrderChanged(const std::vector<int> &order)
{
    std::vector<int> now(order.size() + 1, int(order.size())); // the new row keeps its place
    for (size_t row = 0; row < order.size(); ++row)
        now[size_t(order[row])] = int(row);
    const QModelIndexList from = persistentIndexList();
    QModelIndexList to;
    for (const QModelIndex &old : from)
        to.append(index(now[size_t(old.row())], old.column()));
    changePersistentIndexList(from, to);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}
