// SPDX-License-Identifier: MIT
#include "ComponentNames.h"

#include "ZulType.h"

void ComponentNames::Enter(const NarrowText &name, const CZulClass &object)
{
    if (name.isEmpty())
        return;
    Bearers &bearers = names[name];
    ++bearers.count;
    bearers.combined ^= quintptr(&object);
}

void ComponentNames::Leave(const NarrowText &name, const CZulClass &object)
{
    const auto found = names.find(name);
    if (found == names.end())
        return;
    found->combined ^= quintptr(&object);
    if (--found->count == 0)
        names.erase(found);
}

void ComponentNames::Add(CZulClass &object)
{
    object.names = this;
    Enter(object.propName, object);
    for (const auto &sub : object.subComponents)
        Add(*sub);
}

void ComponentNames::Remove(CZulClass &object)
{
    object.names = nullptr;
    Leave(object.propName, object);
    for (const auto &sub : object.subComponents)
        Remove(*sub);
}

void ComponentNames::Rename(CZulClass &object, const NarrowText &from, const NarrowText &to)
{
    Leave(from, object);
    Enter(to, object);
}

CZulClass *ComponentNames::OnlyOne(const NarrowText &name) const
{
    const Bearers bearers = names.value(name);
    return bearers.count == 1 ? reinterpret_cast<CZulClass *>(bearers.combined) : nullptr;
}
