// SPDX-License-Identifier: MIT
#include "CellFinder.h"

namespace
{

constexpr qint32 FEW = 64; // walking this many holders is faster than making an index

// The folders of languages contain only strings.
CStringRes *AsString(CBaseRes *res)
{
    return static_cast<CStringRes *>(res);
}

} // namespace

CStringRes *CellFinder::Find(const IDRecord *id, const CResFolder &folder)
{
    if (id->refs <= FEW)
        return AsString(folder.FindResource(id));
    if (index.empty())
        MakeIndex();
    const Cells &cells = index[&folder];
    const auto found = cells.find(id);
    return found == cells.end() ? nullptr : found->second;
}

void CellFinder::MakeIndex()
{
    for (const CResFolder *folder : folders) {
        const auto [cells, isNew] = index.try_emplace(folder);
        for (CBaseRes *res = isNew ? folder->resources.First() : nullptr; res; res = res->NextInFolder())
            cells->second.try_emplace(res->Id(), AsString(res));
    }
}

void CellFinder::Added(CStringRes *record)
{
    if (!index.empty())
        index[record->Folder()].try_emplace(record->Id(), record);
}
