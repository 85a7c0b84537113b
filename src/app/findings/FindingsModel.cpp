// SPDX-License-Identifier: MIT
#include "FindingsModel.h"

#include "CellLine.h"
#include "SeverityIcons.h"
#include "UiIcons.h"

using namespace Qt::StringLiterals;

int FindingsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : list.RowCount();
}

int FindingsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : FindingList::COLUMN_COUNT;
}

QVariant FindingsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const int row = index.row();
    const int col = index.column();
    switch (role) {
    case Qt::DisplayRole:
        return CellLine(list.CellText(row, col), LONGEST_SHOWN);
    case Qt::DecorationRole:
        return col == FindingList::ID_COLUMN ? QVariant(MakeIcon(IconOf(list.At(row).severity))) : QVariant();
    case Qt::AccessibleTextRole:
        return QString::fromLatin1(SeverityWord(list.At(row).severity)) + u", "_s + FindingList::ColumnTitle(col) +
               u": "_s + CellLine(list.CellText(row, col), LONGEST_SHOWN);
    default:
        return {};
    }
}

QVariant FindingsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return FindingList::ColumnTitle(section);
}
