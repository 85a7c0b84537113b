// SPDX-License-Identifier: MIT
#include "StringRows.h"

#include "ResModel.h"

std::vector<const CStringRes *> StringRowsOf(const CResModel &model)
{
    std::vector<const CStringRes *> heads;
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    if (!strings || strings->subfolders.empty())
        return heads;
    heads.reserve(strings->subfolders.front()->resources.Count());
    for (const CBaseRes *res : strings->subfolders.front()->resources)
        heads.push_back(static_cast<const CStringRes *>(res));
    return heads;
}
