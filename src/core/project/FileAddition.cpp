// SPDX-License-Identifier: MIT
#include "FileAddition.h"

#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ResModel.h"

namespace
{

/// Returns whether a load reads the same path from the list: it condenses blanks and drops outer quotation marks.
bool IsKeptByList(const QString &stored)
{
    return !stored.contains(u"  ") && !stored.endsWith(u' ') && !stored.endsWith(u'"');
}

} // namespace

int ToStoredPath(const CResModel &model, QString &path)
{
    const QString folderOfProject = DirectoryOf(model.PathName());
    const QString absolute = path;
    MakeRelative(path, folderOfProject);
    // MakeRelative ignores case in names; on this disk, names that differ in case may be two folders.
    if (path != absolute && !absolute.startsWith(folderOfProject) &&
        !IsSameFile(HostPath(absolute), HostPath(ResolvePath(path, folderOfProject))))
        path = absolute;
    if (model.env.NarrowToWide(model.env.WideToNarrow(path)) != path)
        return FILE_NAME_NOT_IN_CODE_PAGE;
    return IsKeptByList(path) ? FILE_EDIT_DONE : FILE_NAME_NOT_KEPT_BY_LIST;
}

int AddFileResource(CResModel &model, CResFolder &folder, const QString &path, const QString &storedAt,
                    const FileClassifier &types, CFileRes *&made)
{
    made = nullptr;
    const quint32 type = types.Classify(folder.kind, path);
    CResFolder *const target = folder.kind == KIND_FILES ? folder.FindFolder(type, 1) : &folder;
    if ((folder.kind & type) == 0 || !target)
        return FILE_WRONG_TYPE;
    if (const int code = CheckArrival(path); code != FILE_EDIT_DONE)
        return code;
    QString stored = storedAt;
    if (const int code = ToStoredPath(model, stored); code != FILE_EDIT_DONE)
        return code;
    std::unique_ptr<CFileRes> res = model.CreateDefaultFileRes(*target, path);
    if (!res)
        return FILE_NO_DEFAULT_ID;
    res->SetPath(model.env.WideToNarrow(stored));
    made = res.get();
    target->AddResource(std::move(res));
    return FILE_EDIT_DONE;
}
