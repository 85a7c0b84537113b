// SPDX-License-Identifier: MIT
#include "V1ListModel.h"

#include "CellLine.h"

namespace
{

enum Column
{
    COLUMN_NAME,
    COLUMN_PATH,
    COLUMNS,
};

} // namespace

V1ListModel::V1ListModel(V1ResourceList &resourceList, QObject *parent)
    : QAbstractTableModel(parent), list(resourceList)
{
}

void V1ListModel::Add(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + int(paths.size()) - 1);
    list.Add(paths);
    endInsertRows();
}

void V1ListModel::Remove(const std::vector<int> &rows)
{
    if (rows.empty())
        return;
    beginResetModel();
    list.Remove({rows.begin(), rows.end()});
    endResetModel();
}

int V1ListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(list.Rows().size());
}

int V1ListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : COLUMNS;
}

QVariant V1ListModel::data(const QModelIndex &index, int role) const
{
    const V1ResourceList::Row &row = list.Rows()[size_t(index.row())];
    const QString &text = index.column() == COLUMN_NAME ? row.name : row.path;
    switch (role) {
    case Qt::DisplayRole:
        return CellLine(text, LONGEST_SHOWN);
    case Qt::ToolTipRole:
        return text;
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1, %2: %3")
            .arg(row.name, headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString(), text);
    default:
        return {};
    }
}

QVariant V1ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return section == COLUMN_NAME ? QStringLiteral("Name") : QStringLiteral("Path");
}
