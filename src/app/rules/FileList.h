#pragma once

#include "FileArrival.h"
#include "FileClassifier.h"
#include "ResFolder.h"

#include <QHash>
#include <QStringList>

#include <vector>

class CResModel;

/// What shows a FileList. Told of each change before and after. Row numbers are those before the change.
class IFileGrid
{
public:
    virtual void RowsComing(int first, int last) = 0; ///< the numbers that they will have
    virtual void RowsCame() = 0;
    virtual void RowsGoing(int first, int last) = 0;
    virtual void RowsWent() = 0;
    virtual void RowsChanged(int first, int last) = 0;
    virtual void OrderChanging() = 0;
    /// `order` has, row by row, the number that the row had before.
    virtual void OrderChanged(const std::vector<int> &order) = 0;
    virtual void ListResetting() = 0;
    virtual void ListReset() = 0;

protected:
    ~IFileGrid() = default;
};

/// The list of file resources of a folder: its rows, their order, and all that can be done to them.
///
/// The last row is the new row, which has no resource. The folder of a component has no such row, and shows only the
/// images that are in use. The resources belong to the tree: call LetGo before they are destroyed elsewhere.
class FileList
{
public:
    static constexpr int ID_COLUMN = 0;
    static constexpr int TYPE_COLUMN = 1;
    static constexpr int PATH_COLUMN = 2;
    static constexpr int COLUMN_COUNT = 3;

    /// Both must live longer.
    FileList(CResModel &projectModel, IFileGrid &shownIn) : model(projectModel), grid(shownIn) {}

    /// Shows a folder of the tree, or nothing, sorted by `sortState`.
    void Fill(CResFolder *toShow, int sortState);
    void LetGo() { Fill(nullptr, 0); }
    [[nodiscard]] CResFolder *Folder() const { return folder; }
    /// Says whether the folder is that of a component.
    [[nodiscard]] bool IsItemFolder() const { return folder && (folder->kind & KIND_FLAG_ITEM); }
    /// Says whether the list may hold nodes that go with an announced folder (ITreeListener).
    [[nodiscard]] bool HoldsOf(const CResFolder &going) const;

    /// The number of rows, the new row included.
    [[nodiscard]] int RowCount() const { return Files() + (HasNewRow() ? newRows : 0); }
    /// The number of resources that are shown.
    [[nodiscard]] int Files() const { return int(rows.size()); }
    [[nodiscard]] bool HasNewRow() const { return folder && !IsItemFolder(); }
    /// The resource of a row; null for the new row.
    [[nodiscard]] CFileRes *At(int row) const;
    /// The row of a resource, or -1.
    [[nodiscard]] int RowOf(const CBaseRes &res) const;
    /// The first row of an ID, or -1.
    [[nodiscard]] int RowOf(const NarrowText &id) const;
    [[nodiscard]] QString CellText(int row, int col) const;
    [[nodiscard]] static QString ColumnTitle(int col);

    /// Sorts the rows; the new row stays the last. A sort state n > 0 is ascending by column n - 1, -n descending. Of
    /// equal rows the order stays.
    void Sort(int sortState);

    // Edits. Each gives a FileEdit.
    /// Adds a file to the project, in front of `row`.
    [[nodiscard]] int AddFileRow(int row, const QString &path);
    /// What became of several files.
    struct Additions
    {
        int added = 0;
        QStringList refusals; ///< each "NAME": and why
    };
    /// Adds files in front of the new row; those that can't be added don't keep the others from it. Folders are
    /// skipped.
    [[nodiscard]] Additions AddFiles(const QStringList &paths);
    /// Gives a row another ID; on the new row it makes a resource without a file.
    [[nodiscard]] int ApplyIdEdit(int row, const QString &text);
    /// The kind of file that a row may have.
    [[nodiscard]] quint32 KindOfRow(int row) const;
    /// Gives a row another file; on the new row it adds the file.
    [[nodiscard]] int SetFile(int row, const QString &path);

    /// Takes the resources of these rows (ascending) out of the project; the new row stays.
    void Remove(const std::vector<int> &toRemove);
    /// Takes all out of the project.
    void Clear();

    // Normal and Push mark nothing as modified.
    /// Makes a row "Push" or "Normal". False, and no change, for any other text.
    bool SetType(int row, const QString &type);
    /// The box of types was closed with that text over a row, which shows it from then on.
    void CloseType(int row, const QString &type);
    /// Inverts each of these rows.
    void FlipPush(const std::vector<int> &selected);
    /// Gives component images their stock images back.
    void Reset(const std::vector<int> &selected);

private:
    [[nodiscard]] std::unique_ptr<CFileRes> MakeResource(QString path, const FileClassifier &types, CResFolder *&target,
                                                         int &code) const;
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
    int newRows = 1;                              // two for the moment in which one becomes a resource's
    QHash<const CFileRes *, QString> closedTypes; // what a row shows when it isn't its own type
};
