#pragma once

#include "FileList.h"

#include <QAbstractTableModel>

#include <functional>

/// The list of files of a window as an item model.
class FileListModel : public QAbstractTableModel, public IFileGrid
{
public:
    /// Until a list is set the model is empty. It must live longer, or be taken away again.
    void SetList(const FileList *fileList);

    /// Gives the picture of a row, and its tool tip.
    std::function<QVariant(int row)> pictureOf;
    std::function<QVariant(int row)> tipOf;
    /// The pictures are to be asked for again.
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
