// SPDX-License-Identifier: MIT
#pragma once

#include "CheckList.h"

#include <QAbstractTableModel>

/// A list of check boxes as an item model; the box is in column 0.
class CheckListModel : public QAbstractTableModel
{
public:
    /// The list must outlive this object, and must be filled already.
    CheckListModel(CheckList &checkList, QObject *parent);

    /// Checks or unchecks all rows at once.
    void SetAll(bool checked);
    /// Sorts the rows (CheckList::Sort). Selected rows remain selected.
    void Sort(int sortState, const std::function<int(qint32 a, qint32 b, int column)> &compare);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    CheckList &list;
};
