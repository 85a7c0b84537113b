// SPDX-License-Identifier: MIT
#include "PropertyChoices.h"

#include "CLayoutRes.h"
#include "ResModel.h"

namespace
{

void AddIdsOf(const CResModel &model, quint32 kind, qint32 index, std::vector<NarrowText> &names)
{
    const CResFolder *folder = model.root.FindFolder(kind, index, 2);
    if (!folder)
        return;
    for (const CBaseRes *res : folder->resources) {
        if (res->Id())
            names.push_back(res->Id()->name);
    }
}

} // namespace

std::vector<NarrowText> IdsToChoose(qint32 typeId, const CLayoutRes &layoutRes, CResModel &model)
{
    const qint16 resolution = layoutRes.File() ? layoutRes.File()->resolution : ANY_RESOLUTION;
    std::vector<NarrowText> names;
    if (typeId == TYPE_RES_ID) {
        for (const IDRecord *id = model.ids.sentinel.next; id != &model.ids.sentinel; id = id->next) {
            if (id->scope == resolution || id->scope == ANY_RESOLUTION)
                names.push_back(id->name);
        }
    } else if (typeId == TYPE_IMAGE_SRC || typeId == TYPE_STATE_IMAGE) {
        AddIdsOf(model, KIND_RESO_IMAGES, resolution, names);
        if (resolution >= 0)
            AddIdsOf(model, KIND_RESO_IMAGES, ANY_RESOLUTION, names);
    } else if (typeId == TYPE_WSTRING) {
        AddIdsOf(model, KIND_LANGUAGE, -1, names);
    }
    return names;
}

std::vector<CZulClass *> ParentsToChoose(const CLayoutRes &layoutRes, const CZulClass &component)
{
    struct Level
    {
        const std::vector<std::unique_ptr<CZulClass>> *objects;
        size_t next = 0;
    };
    std::vector<CZulClass *> parents;
    std::vector<Level> levels = {{&layoutRes.Components()}}; // no recursion: a layout may nest to any depth
    while (!levels.empty()) {
        Level &level = levels.back();
        if (level.next == level.objects->size()) {
            levels.pop_back();
            continue;
        }
        CZulClass *const object = (*level.objects)[level.next++].get();
        if (object == &component)
            continue;
        parents.push_back(object);
        levels.push_back({&object->subComponents});
    }
    return parents;
}
