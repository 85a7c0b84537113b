// SPDX-License-Identifier: MIT
#pragma once

#include "FileAddition.h"

#include <QHash>
#include <QStringList>

#include <vector>

class CResModel;

/// The view of a FileList, which calls it before and after each change. Row numbers are those before the change.
class IFileGrid
{
public:
    virtual void RowsComing(int first, int last) = 0; ///< the numbers that the new rows will have
    virtual void RowsCame() = 0;
    virtual void RowsGoing(int first, int last) = 0;
    virtual void RowsWent() = 0;
    virtual void RowsChanged(int first, int last) = 0;
    virtual void OrderChanging() = 0;
    /// `order[i]` is the former number of row i.
    virtual void OrderChanged(const std::vector<int> &order) = 0;
    virtual void ListResetting() = 0;
    virtual void ListReset() = 0;

protected:
    ~IFileGrid() = default;
};

/// The list of file resources of a folder: its rows, their order, and all operations on them.
///
/// The last row is the new row, which has no resource. The folder of a component has no new row, and shows only the
/// images that are in use. The tree owns the resources: call LetGo before other code destroys them.
class FileList
{
public:
    static constexpr int ID_COLUMN = 0;
    static constexpr int TYPE_COLUMN = 1;
    static constexpr int PATH_COLUMN = 2;
    static constexpr int COLUMN_COUNT = 3;

    /// Both arguments must outlive this object.
    FileList(CResModel &projectModel, IFileGrid &shownIn) : model(projectModel), grid(shownIn) {}

    /// Shows a folder of the tree sorted by `sortState`, or nothing if it is null.
    void Fill(CResFolder *toShow, int sortState);
    void LetGo() { Fill(nullptr, 0); }
    [[nodiscard]] CResFolder *Folder() const { return folder; }
    /// Returns whether the folder is that of a component.
    [[nodiscard]] bool IsItemFolder() const { return folder && (folder->kind & KIND_FLAG_ITEM); }
    /// Returns whether the list may have resources that are about to be destroyed with the folder `going`
    /// (ITreeListener).
    [[nodiscard]] bool HoldsOf(const CResFolder &going) const;

    /// The number of rows, including the new row.
    [[nodiscard]] int RowCount() const { return Files() + (HasNewRow() ? newRows : 0); }
    /// The number of resources that are shown.
    [[nodiscard]] int Files() const { return int(rows.size()); }
    [[nodiscard]] bool HasNewRow() const { return folder && !IsItemFolder(); }
    /// The resource of a row; null for the new row.
    [[nodiscard]] CFileRes *At(int row) const;
    /// The row of a resource, or -1.
    [[nodiscard]] int RowOf(const CBaseRes &res) const;
    /// The first row with an ID, or -1.
    [[nodiscard]] int RowOf(const NarrowText &id) const;
    [[nodiscard]] QString CellText(int row, int col) const;
    [[nodiscard]] static QString ColumnTitle(int col);

    /// Sorts the rows; the new row remains the last. A sort state n > 0 is ascending by column n - 1, and -n is
    /// descending. The sort is stable.
    void Sort(int sortState);

    // Edits. Each returns a FileEdit.
    /// Adds a file to the project, in front of `row`.
    [[nodiscard]] int AddFileRow(int row, const QString &path);
    /// The result of adding several files.
    struct Additions
    {
        int added = 0;
        QStringList refusals; ///< each is "NAME": and the reason
    };
    /// Adds files in front of the new row. A file that can't be added doesn't prevent the others from being added.
    /// Folders are skipped.
    [[nodiscard]] Additions AddFiles(const QStringList &paths);
    /// Gives a row another ID. On the new row, makes a resource without a file.
    [[nodiscard]] int ApplyIdEdit(int row, const QString &text);
    /// The kind of file that is allowed in a row.
    [[nodiscard]] quint32 KindOfRow(int row) const;
    /// Gives a row another file. On the new row, adds the file.
    [[nodiscard]] int SetFile(int row, const QString &path);

    /// Removes the resources of these rows (ascending) from the project. The new row remains.
    void Remove(const std::vector<int> &toRemove);
    /// Removes all resources of the list from the project.
    void Clear();

    // Changes between Normal and Push mark nothing as modified.
    /// Makes a row "Push" or "Normal". For any other text, returns false and changes nothing.
    bool SetType(int row, const QString &type);
    /// Called when the box of types over a row is closed with a text. The row shows that text from then on.
    void CloseType(int row, const QString &type);
    /// Changes each of these rows from Push to Normal or from Normal to Push.
    void FlipPush(const std::vector<int> &selected);
    /// Gives component images their stock images again.
    void Reset(const std::vector<int> &selected);

private:
    [[nodiscard]] int Create(const QString &path, const FileClassifier &types, std::vector<CFileRes *> &made) const;
    void Insert(int row, const std::vector<CFileRes *> &made);
    [[nodiscard]] int MakeByName(const NarrowText &id);
    [[nodiscard]] int TakePath(QString &path) const;
    void Reorder(const std::vector<int> &order);
    void SetPushKind(const CFileRes &res) const;
    void TakeOut(CFileRes &res);

    CResModel &model;
    IFileGrid &grid;
    CResFolder *folder = nullptr;
    std::vector<CFileRes *> rows;
    int newRows = 1;                              // two while one of them becomes the row of a resource
    QHash<const CFileRes *, QString> closedTypes; // the text that a row shows if it isn't the resource's type
};
