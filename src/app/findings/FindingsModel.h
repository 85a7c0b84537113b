// SPDX-License-Identifier: MIT
#pragma once

#include "FindingList.h"

#include <QAbstractTableModel>

/// A window's list of findings as an item model.
class FindingsModel : public QAbstractTableModel
{
public:
    /// The list; change it only through `Change`.
    [[nodiscard]] const FindingList &List() const { return list; }

    /// Changes the list in a function, and resets the model.
    template <typename Function> void Change(const Function &change)
    {
        beginResetModel();
        change(list);
        endResetModel();
    }

    // QAbstractTableModel
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    FindingList list;
};
