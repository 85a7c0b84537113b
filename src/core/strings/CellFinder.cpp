#include "CellFinder.h"

namespace {

constexpr int FEW = 64; // so many holders are walked faster than an index is made

} // namespace

CStringRes *CellFinder::Find(const IDRecord *id, const CResFolder *folder)
{
    // Only strings stand in the folders of languages.
    CStringRes *found = nullptr;
    int walked = 0;
    // Holders are newest first, the oldest of a folder is the one to find.
    for (CBaseRes *res = id->holders; res && walked <= FEW; res = res->NextHolder(), ++walked) {
        if (res->Folder() == folder)
            found = static_cast<CStringRes *>(res);
    }
    if (walked <= FEW)
        return found;
    const auto [index, isNew] = wide.try_emplace(id);
    if (isNew) {
        for (CBaseRes *res = id->holders; res; res = res->NextHolder())
            index->second[res->Folder()] = static_cast<CStringRes *>(res);
    }
    const auto place = index->second.find(folder);
    return place == index->second.end() ? nullptr : place->second;
}

void CellFinder::Added(CStringRes *record)
{
    if (wide.empty())
        return;
    const auto index = wide.find(record->Id());
    if (index != wide.end())
        index->second.try_emplace(record->Folder(), record);
}
