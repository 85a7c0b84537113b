// SPDX-License-Identifier: MIT
#include "ResFolder.h"

#include <algorithm>
#include <utility>

void ResourceList::InsertBefore(CBaseRes *res, CBaseRes *before)
{
    CBaseRes *previous = before ? before->prevInFolder : last;
    res->prevInFolder = previous;
    res->nextInFolder = before;
    (previous ? previous->nextInFolder : first) = res;
    (before ? before->prevInFolder : last) = res;
    ++count;
}

void ResourceList::Take(CBaseRes *res)
{
    (res->prevInFolder ? res->prevInFolder->nextInFolder : first) = res->nextInFolder;
    (res->nextInFolder ? res->nextInFolder->prevInFolder : last) = res->prevInFolder;
    res->prevInFolder = res->nextInFolder = nullptr;
    --count;
}

CResFolder::~CResFolder()
{
    DestroyContents();
    NotifyRemoved();
}

void CResFolder::SetObserver(IEspia *newObserver)
{
    observer = newObserver;
    NotifyAdded();
}

void CResFolder::DestroyContents()
{
    while (CBaseRes *res = resources.First()) {
        resources.Take(res);
        delete res;
    }
    for (std::unique_ptr<CResFolder> &folder : std::exchange(subfolders, {}))
        folder.reset(); // in their order
}

namespace
{

template <typename Test> CResFolder *FindWhere(const CResFolder &below, int depth, const Test &test)
{
    if (depth < 1)
        return nullptr;
    for (const auto &folder : below.subfolders) {
        if (test(*folder))
            return folder.get();
        if (CResFolder *found = FindWhere(*folder, depth - 1, test))
            return found;
    }
    return nullptr;
}

} // namespace

CResFolder *CResFolder::FindFolder(quint32 wanted, int depth) const
{
    return FindWhere(*this, depth, [&](const CResFolder &folder) { return folder.kind == wanted; });
}

CResFolder *CResFolder::FindFolder(quint32 wanted, qint32 wantedIndex, int depth) const
{
    return FindWhere(*this, depth,
                     [&](const CResFolder &folder) { return folder.kind == wanted && folder.index == wantedIndex; });
}

CResFolder *CResFolder::FindFolder(quint32 wanted, const QString &wantedTitle, int depth) const
{
    return FindWhere(*this, depth,
                     [&](const CResFolder &folder) { return folder.kind == wanted && folder.title == wantedTitle; });
}

CBaseRes *CResFolder::FindResource(const NarrowText &name) const
{
    for (CBaseRes *res : resources) {
        if (res->Id() && res->Id()->name == name)
            return res;
    }
    return nullptr;
}

CBaseRes *CResFolder::FindResource(const IDRecord *resId) const
{
    if (!resId)
        return nullptr;
    for (CBaseRes *res : Holders(*resId)) { // we want the oldest in this folder
        if (res->folder == this)
            return res;
    }
    return nullptr;
}

void CResFolder::AddResource(std::unique_ptr<CBaseRes> res)
{
    InsertResourceBefore(std::move(res), nullptr);
    NotifyChanged();
}

void CResFolder::AddFolder(std::unique_ptr<CResFolder> folder)
{
    subfolders.push_back(std::move(folder));
    NotifyChanged();
}

void CResFolder::InsertResourceBefore(std::unique_ptr<CBaseRes> res, CBaseRes *before)
{
    CBaseRes *const inserted = res.release();
    inserted->folder = this;
    resources.InsertBefore(inserted, before && before->folder == this ? before : nullptr);
}

std::unique_ptr<CBaseRes> CResFolder::TakeResource(CBaseRes *res)
{
    if (!res || res->folder != this)
        return nullptr;
    resources.Take(res);
    res->folder = nullptr;
    return std::unique_ptr<CBaseRes>(res);
}

bool CResFolder::DeleteResource(CBaseRes *res)
{
    {
        const std::unique_ptr<CBaseRes> taken = TakeResource(res);
        if (!taken)
            return false;
    }
    NotifyChanged();
    return true;
}

bool CResFolder::DeleteResource(const IDRecord *resId)
{
    return DeleteResource(FindResource(resId));
}

bool CResFolder::DeleteFolder(CResFolder *folder)
{
    const auto found =
        std::find_if(subfolders.begin(), subfolders.end(), [&](const auto &owned) { return owned.get() == folder; });
    if (found == subfolders.end())
        return false;
    const std::unique_ptr<CResFolder> taken = std::move(*found);
    subfolders.erase(found);
    NotifyChanged();
    return true;
}

bool CResFolder::Clear()
{
    DestroyContents();
    NotifyChanged();
    return true;
}
