// SPDX-License-Identifier: MIT
#include "ComponentNames.h"
#include "ZulType.h"

#include <algorithm>

namespace
{

template <typename T> std::unique_ptr<T> TakeOut(std::vector<std::unique_ptr<T>> &list, const T *which)
{
    const auto found =
        std::find_if(list.begin(), list.end(), [which](const std::unique_ptr<T> &item) { return item.get() == which; });
    if (found == list.end())
        return nullptr;
    std::unique_ptr<T> taken = std::move(*found);
    list.erase(found);
    return taken;
}

} // namespace

CZulType *CZulClass::FindMember(const NarrowText &name) const
{
    CZulType *const own = CZulCustom::FindMember(name);
    return own || !super ? own : super->FindMember(name);
}

ComponentObject *CZulClass::ComponentForMember(CZulType *member)
{
    if (!component && owner)
        component = owner->ComponentForMember(this);
    // The properties of the base class are attributes of the same component.
    return member == super.get() ? component : CZulCustom::ComponentForMember(member);
}

bool CZulClass::Define(const ClassDescriptor &definition)
{
    CZulCustom::Define(definition);
    if (definition.baseName.isEmpty() || definition.baseName == typeName)
        return true;
    const ClassDescriptor *base = catalogue.Find(definition.baseName);
    if (!base || base->kind != CLASS_CLASS || Depth() >= DEEPEST_TYPE)
        return true;
    static const NarrowText superName("super");
    super = std::make_unique<CZulClass>(catalogue);
    super->propName = superName;
    super->owner = this;
    super->Define(*base);
    return true;
}

bool CZulClass::AddSubComponent(ComponentObject *child)
{
    if (!child)
        return false;
    std::unique_ptr<CZulType> made = CreateType(catalogue, {}, child->className);
    if (!made || made->GetTypeId() != TYPE_CLASS)
        return false;
    std::unique_ptr<CZulClass> sub(static_cast<CZulClass *>(made.release()));
    if (!BindComponent(*sub, child))
        return false;
    sub->parent = this;
    if (names)
        names->Add(*sub);
    subComponents.push_back(std::move(sub));
    return true;
}

void CZulClass::SetName(const NarrowText &name)
{
    if (names)
        names->Rename(*this, propName, name);
    propName = name;
    if (component)
        component->name = name;
}

CZulClass *CZulClass::FindSubComponent(const NarrowText &name)
{
    if (propName == name)
        return this;
    for (const auto &sub : subComponents) {
        if (CZulClass *found = sub->FindSubComponent(name))
            return found;
    }
    return nullptr;
}

bool CZulClass::DeleteSubComponent(CZulClass *sub)
{
    return DetachSubComponent(sub).object != nullptr;
}

CZulClass::Detached CZulClass::DetachSubComponent(CZulClass *sub)
{
    Detached detached;
    detached.object = TakeOut(subComponents, sub);
    if (!detached.object)
        return detached;
    if (component)
        detached.component = TakeOut(component->children, sub->component);
    sub->parent = nullptr;
    if (names)
        names->Remove(*sub);
    return detached;
}

void CZulClass::AttachSubComponent(Detached detached)
{
    if (!detached.object || !component)
        return;
    if (detached.component)
        component->children.push_back(std::move(detached.component));
    detached.object->parent = this;
    if (names)
        names->Add(*detached.object);
    subComponents.push_back(std::move(detached.object));
}
