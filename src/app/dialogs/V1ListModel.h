// SPDX-License-Identifier: MIT
#pragma once

#include "V1ResourceList.h"

#include <QAbstractTableModel>

/// The list of version 1.0 resources as an item model: a row for each file, with its name and its path.
class V1ListModel : public QAbstractTableModel
{
public:
    /// The list must outlive this object, and must be changed only through it.
    V1ListModel(V1ResourceList &resourceList, QObject *parent);

    /// Appends files in the order of `paths`.
    void Add(const QStringList &paths);
    /// Removes the rows with these indices, which must be ascending.
    void Remove(const std::vector<int> &rows);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    V1ResourceList &list;
};
