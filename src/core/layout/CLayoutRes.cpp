// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"

#include <algorithm>

CLayoutRes::CLayoutRes(LayoutFileRef fileRef, LayoutObject *object, const ClassCatalogue &types)
    : catalogue(types), file(std::move(fileRef)), layout(object)
{
    SetId(layout->Id());
}

CLayoutRes::~CLayoutRes()
{
    components.clear(); // before the components that they point to
    file->Remove(Id());
}

std::unique_ptr<CLayoutRes> CLayoutRes::Create(const LayoutFileRef &file, LayoutObject *layout,
                                               const ClassCatalogue &catalogue)
{
    if (!file || !layout)
        return nullptr;
    std::unique_ptr<CLayoutRes> res(new CLayoutRes(file, layout, catalogue));
    for (const auto &component : layout->components) {
        auto object = res->MakeObject(component->className);
        if (!object || !BindComponent(*object, component.get()))
            return nullptr;
        res->components.push_back(std::move(object));
    }
    return res;
}

std::unique_ptr<CLayoutRes> CLayoutRes::CreateEmpty(IDRecord *record, const LayoutFileRef &file,
                                                    const ClassCatalogue &catalogue)
{
    if (!record || !file || file->Add(std::make_unique<LayoutObject>(record)) != 0)
        return nullptr;
    return Create(file, file->Find(record), catalogue);
}

std::unique_ptr<CZulClass> CLayoutRes::MakeObject(const NarrowText &className) const
{
    std::unique_ptr<CZulType> made = CreateType(catalogue, {}, className);
    if (!made || made->GetTypeId() != TYPE_CLASS)
        return nullptr;
    return std::unique_ptr<CZulClass>(static_cast<CZulClass *>(made.release()));
}

CZulClass *CLayoutRes::AddComponent(Environment &env, std::unique_ptr<ComponentObject> component)
{
    auto object = component ? MakeObject(component->className) : nullptr;
    if (!object)
        return nullptr;
    NotifyChanged();
    if (!BindComponent(*object, component.get()) || layout->AddComponent(env, std::move(component)) != 0)
        return nullptr;
    if (names)
        names->Add(*object);
    components.push_back(std::move(object));
    return components.back().get();
}

CZulClass::Detached CLayoutRes::Detach(CZulClass *object)
{
    const auto isIt = [](auto *wanted) { return [wanted](const auto &owned) { return owned.get() == wanted; }; };
    CZulClass::Detached detached;
    const auto place = std::find_if(components.begin(), components.end(), isIt(object));
    if (place == components.end())
        return detached;
    const auto under = std::find_if(layout->components.begin(), layout->components.end(), isIt(object->component));
    if (names)
        names->Remove(*object);
    detached.object = std::move(*place);
    detached.component = std::move(*under);
    components.erase(place);
    layout->components.erase(under);
    return detached;
}

bool CLayoutRes::DeleteComponent(CZulClass *object)
{
    if (Detach(object).object)
        NotifyChanged();
    return true;
}

bool CLayoutRes::MoveComponent(CZulClass *newParent, CZulClass *object)
{
    if (object->parent == newParent)
        return true;
    if (newParent && !newParent->component)
        return false; // it can't hold another
    for (const CZulClass *above = newParent; above; above = above->parent) {
        if (above == object)
            return false;
    }
    CZulClass::Detached detached = object->parent ? object->parent->DetachSubComponent(object) : Detach(object);
    if (!detached.object)
        return false;
    if (newParent) {
        newParent->AttachSubComponent(std::move(detached));
    } else {
        if (names)
            names->Add(*object);
        layout->components.push_back(std::move(detached.component));
        components.push_back(std::move(detached.object));
    }
    NotifyChanged();
    return true;
}

ComponentNames &CLayoutRes::Names() const
{
    if (!names) {
        names = std::make_unique<ComponentNames>();
        for (const auto &object : components)
            names->Add(*object);
    }
    return *names;
}

NarrowText CLayoutRes::NewName(quint32 &counter) const
{
    NarrowText name;
    do {
        name = "cp" + QByteArray::number(++counter, 16).rightJustified(2, '0');
    } while (Names().CountOf(name) != 0);
    return name;
}

CZulClass *CLayoutRes::FindComponent(const NarrowText &name) const
{
    if (!name.isEmpty() && Names().CountOf(name) <= 1)
        return Names().OnlyOne(name);
    for (const auto &object : components) {
        if (CZulClass *found = object->FindSubComponent(name))
            return found;
    }
    return nullptr;
}
