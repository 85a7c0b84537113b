// SPDX-License-Identifier: MIT
#include "FileList.h"

#include "Environment.h"
#include "FileOrder.h"
#include "IdNames.h"
#include "Paths.h"
#include "ProjectTree.h"
#include "ResModel.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace
{

const QString NORMAL = u"Normal"_s;
const QString PUSH = u"Push"_s;

/// Walks the folder's list from both ends: each step waits for memory, and this way two steps wait at the same time.
void AppendRows(std::vector<CFileRes *> &rows, const CResFolder &folder)
{
    size_t front = rows.size();
    size_t back = front + folder.resources.Count();
    rows.resize(back);
    CBaseRes *behind = folder.resources.Last();
    for (CBaseRes *ahead = folder.resources.First(); front < back; ahead = ahead->NextInFolder()) {
        rows[front++] = static_cast<CFileRes *>(ahead); // such folders have only files
        if (front == back)
            break;
        rows[--back] = static_cast<CFileRes *>(behind);
        behind = behind->PrevInFolder();
    }
    if (folder.kind & KIND_FLAG_ITEM)
        std::erase_if(rows, [](const CFileRes *res) { return !res->inUse; });
}

} // namespace

void FileList::Fill(CResFolder *toShow, int sortState)
{
    grid.ListResetting();
    folder = toShow;
    rows.clear();
    closedTypes.clear();
    if (folder && folder->kind == KIND_FILES) {
        for (const auto &subfolder : folder->subfolders)
            AppendRows(rows, *subfolder);
    } else if (folder) {
        AppendRows(rows, *folder);
    }
    Reorder(FileOrder(rows, model.env, sortState));
    grid.ListReset();
}

bool FileList::HoldsOf(const CResFolder &going) const
{
    return folder && (IsWithin(*folder, going) || IsWithin(going, *folder));
}

CFileRes *FileList::At(int row) const
{
    return row >= 0 && row < Files() ? rows[size_t(row)] : nullptr;
}

int FileList::RowOf(const CBaseRes &res) const
{
    const auto found = std::find(rows.begin(), rows.end(), &res);
    return found == rows.end() ? -1 : int(found - rows.begin());
}

int FileList::RowOf(const NarrowText &id) const
{
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto *res) { return res->Id()->name == id; });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

QString FileList::CellText(int row, int col) const
{
    const CFileRes *const res = At(row);
    if (!res)
        return col == ID_COLUMN ? u"<New>"_s : QString();
    if (col == ID_COLUMN)
        return model.env.NarrowToWide(res->Id()->name);
    if (col == PATH_COLUMN)
        return model.env.NarrowToWide(res->path);
    return closedTypes.isEmpty() ? res->Id()->push ? PUSH : NORMAL
                                 : closedTypes.value(res, res->Id()->push ? PUSH : NORMAL);
}

QString FileList::ColumnTitle(int col)
{
    return col == ID_COLUMN ? u"ID"_s : col == TYPE_COLUMN ? u"Resource Type"_s : u"Path"_s;
}

void FileList::Reorder(const std::vector<int> &order)
{
    std::vector<CFileRes *> sorted(rows.size());
    for (size_t row = 0; row < order.size(); ++row)
        sorted[row] = rows[size_t(order[row])];
    rows = std::move(sorted);
}

void FileList::Sort(int sortState)
{
    const std::vector<int> order = FileOrder(rows, model.env, sortState);
    grid.OrderChanging();
    Reorder(order);
    grid.OrderChanged(order);
}

/// Turns the path of a file into the form that the project stores.
int FileList::TakePath(QString &path) const
{
    const int code = CheckArrival(path);
    return code == FILE_EDIT_DONE ? ToStoredPath(model, path) : code;
}

/// Makes the resource of a file and adds it to its folder.
int FileList::Create(const QString &path, const FileClassifier &types, std::vector<CFileRes *> &made) const
{
    CFileRes *res = nullptr;
    const int code = AddFileResource(model, *folder, path, path, types, res);
    if (res)
        made.push_back(res);
    return code;
}

void FileList::Insert(int row, const std::vector<CFileRes *> &made)
{
    if (made.empty())
        return;
    grid.RowsComing(row, row + int(made.size()) - 1);
    rows.insert(rows.begin() + row, made.begin(), made.end());
    grid.RowsCame();
}

int FileList::AddFileRow(int row, const QString &path)
{
    std::vector<CFileRes *> made;
    const int code = folder ? Create(path, FileClassifier(model.env.settings), made) : FILE_WRONG_TYPE;
    Insert(std::min(row, Files()), made);
    return code;
}

FileList::Additions FileList::AddFiles(const QStringList &paths)
{
    Additions result;
    if (!HasNewRow())
        return result;
    const FileClassifier types(model.env.settings);
    std::vector<CFileRes *> made;
    for (const QString &path : paths) {
        int code = Create(path, types, made);
        if (code == FILE_WRONG_TYPE && CheckArrival(path) == FILE_IS_FOLDER)
            code = FILE_IS_FOLDER;
        if (code != FILE_EDIT_DONE && code != FILE_IS_FOLDER)
            result.refusals.append(u"\"%1\": %2"_s.arg(FileName(path), FileEditMessage(code)));
    }
    result.added = int(made.size());
    Insert(Files(), made);
    return result;
}

quint32 FileList::KindOfRow(int row) const
{
    const CFileRes *const res = At(row);
    if (res && folder->kind == KIND_FILES && res->Folder())
        return res->Folder()->kind;
    return folder ? folder->kind : 0;
}

int FileList::SetFile(int row, const QString &path)
{
    if (EqualsNoCase(path, CellText(row, PATH_COLUMN)))
        return FILE_EDIT_DONE;
    CFileRes *const res = At(row);
    if (!res)
        return AddFileRow(row, path);
    const quint32 kind = KindOfRow(row);
    if (model.ClassifyFile(kind, path) != kind)
        return FILE_WRONG_TYPE;
    QString stored = path;
    if (const int code = TakePath(stored); code != FILE_EDIT_DONE)
        return code;
    res->SetPath(model.env.WideToNarrow(stored));
    grid.RowsChanged(row, row);
    return FILE_EDIT_DONE;
}

int FileList::ApplyIdEdit(int row, const QString &text)
{
    if (EqualsNoCase(text, CellText(row, ID_COLUMN)))
        return FILE_EDIT_DONE;
    const NarrowText id = model.env.WideToNarrow(text);
    if (!IsValidIdName(text) || model.env.NarrowToWide(id) != text)
        return FILE_ID_INVALID;
    CFileRes *const res = At(row);
    if (!res)
        return MakeByName(id);
    if (!res->Rename(model.ids, id))
        return FILE_ID_TAKEN;
    grid.RowsChanged(row, row);
    return FILE_EDIT_DONE;
}

/// Makes the new row the row of a resource without a file. Another new row follows it.
int FileList::MakeByName(const NarrowText &id)
{
    CResFolder *const target = folder && folder->kind == KIND_FILES ? folder->FindFolder(KIND_BINARY, 1) : folder;
    std::unique_ptr<CFileRes> res = target ? model.CreateFileRes(id, qint16(target->index)) : nullptr;
    if (!res)
        return FILE_ID_TAKEN;
    const int row = Files();
    grid.RowsComing(row + 1, row + 1);
    newRows = 2;
    grid.RowsCame();
    newRows = 1;
    rows.push_back(res.get());
    target->AddResource(std::move(res));
    grid.RowsChanged(row, row);
    return FILE_EDIT_DONE;
}

void FileList::TakeOut(CFileRes &res)
{
    closedTypes.remove(&res);
    if (!IsItemFolder()) {
        res.Folder()->DeleteResource(&res);
        return;
    }
    res.inUse = false;
    res.NotifyRemoved();
}

void FileList::Remove(const std::vector<int> &toRemove)
{
    constexpr int MOST_TOLD = 100; // runs of rows; with more a reset is faster
    struct Piece
    {
        int first, last;
    };
    std::vector<Piece> pieces;
    for (const int row : toRemove) {
        if (!At(row))
            continue;
        if (!pieces.empty() && pieces.back().last + 1 == row)
            pieces.back().last = row;
        else
            pieces.push_back({row, row});
    }
    if (pieces.empty())
        return;
    const bool isTold = pieces.size() <= MOST_TOLD;
    if (!isTold)
        grid.ListResetting();
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece) {
        if (isTold)
            grid.RowsGoing(piece->first, piece->last);
        for (int row = piece->last; row >= piece->first; --row)
            TakeOut(*std::exchange(rows[size_t(row)], nullptr));
        if (isTold) {
            rows.erase(rows.begin() + piece->first, rows.begin() + piece->last + 1);
            grid.RowsWent();
        }
    }
    if (isTold)
        return;
    std::erase(rows, nullptr);
    grid.ListReset();
}

void FileList::Clear()
{
    if (!folder)
        return;
    if (IsItemFolder()) {
        std::vector<int> all(rows.size());
        std::iota(all.begin(), all.end(), 0);
        return Remove(all);
    }
    CResFolder &cleared = *folder;
    LetGo();
    if (cleared.kind == KIND_FILES) {
        for (const auto &subfolder : cleared.subfolders)
            model.ClearFolder(*subfolder);
    } else {
        model.ClearFolder(cleared);
    }
    Fill(&cleared, 0);
}

void FileList::SetPushKind(const CFileRes &res) const
{
    const quint32 type = model.ClassifyFile(folder->kind, model.env.NarrowToWide(res.path));
    res.Id()->pushKind = type == KIND_COMPONENT ? PUSH_NONE : CResModel::PushKindOf(type);
}

bool FileList::SetType(int row, const QString &type)
{
    const bool isPush = EqualsNoCase(type, PUSH);
    if (!isPush && !EqualsNoCase(type, NORMAL))
        return false;
    if (const CFileRes *const res = At(row)) {
        res->Id()->push = isPush;
        if (isPush)
            SetPushKind(*res);
        closedTypes.remove(res);
        grid.RowsChanged(row, row);
    }
    return true;
}

void FileList::CloseType(int row, const QString &type)
{
    const CFileRes *const res = At(row);
    if (!res || type.isEmpty())
        return;
    if (type == (res->Id()->push ? PUSH : NORMAL))
        closedTypes.remove(res);
    else
        closedTypes.insert(res, type);
    if (type == PUSH)
        SetPushKind(*res);
    grid.RowsChanged(row, row);
}

void FileList::FlipPush(const std::vector<int> &selected)
{
    for (const int row : selected) {
        const CFileRes *const res = At(row);
        if (!res || !res->Id())
            continue;
        SetPushKind(*res);
        res->Id()->push = !res->Id()->push;
        closedTypes.remove(res);
    }
    if (!selected.empty())
        grid.RowsChanged(selected.front(), selected.back());
}

void FileList::Reset(const std::vector<int> &selected)
{
    if (!IsItemFolder())
        return;
    for (const int row : selected) {
        if (CFileRes *const res = At(row))
            res->Reset(model.env);
    }
    if (!selected.empty())
        grid.RowsChanged(selected.front(), selected.back());
}
