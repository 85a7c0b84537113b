// SPDX-License-Identifier: MIT
#pragma once

#include "FileList.h"

#include <QAbstractTableModel>

#include <functional>

/// A window's list of files as an item model.
class FileListModel : public QAbstractTableModel, public IFileGrid
{
public:
    /// The model is empty until a list is set. The list must outlive the model, or be removed by setting null.
    void SetList(const FileList *fileList);

    /// Returns the picture of a row, and its tool tip.
    std::function<QVariant(int row)> pictureOf;
    std::function<QVariant(int row)> tipOf;
    /// Tells the view that the pictures have changed.
    void PicturesChanged();

    // QAbstractTableModel
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // IFileGrid
    void RowsComing(int first, int last) override { beginInsertRows({}, first, last); }
    void RowsCame() override { endInsertRows(); }
    void RowsGoing(int first, int last) override { beginRemoveRows({}, first, last); }
    void RowsWent() override { endRemoveRows(); }
    void RowsChanged(int first, int last) override;
    void OrderChanging() override { Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint); }
    void OrderChanged(const std::vector<int> &order) override;
    void ListResetting() override { beginResetModel(); }
    void ListReset() override { endResetModel(); }

private:
    const FileList *list = nullptr;
};
