// SPDX-License-Identifier: MIT
#include "MemberTable.h"

#include "ZulType.h"

namespace
{

/// Up to this number of members a linear search is as fast as the table.
constexpr size_t FEW = 8;

/// True if `CreateType` can make an object of that type.
bool CanBeMade(const ClassCatalogue &catalogue, const NarrowText &typeName)
{
    if (TypeIdOf(typeName) != TYPE_UNKNOWN)
        return true;
    const ClassDescriptor *type = catalogue.Find(typeName);
    return !type || (type->kind >= CLASS_CLASS && type->kind <= CLASS_ENUMERATION);
}

} // namespace

MemberTable::MemberTable(const ClassDescriptor &definition, const ClassCatalogue &catalogue)
{
    for (const ClassDescriptor::Item &item : definition.items) {
        // No type contains itself, and the first member with a name counts.
        if (item.typeName == definition.name || places.contains(item.name) || !CanBeMade(catalogue, item.typeName))
            continue;
        places.insert(item.name, int(members.size()));
        members.push_back(item);
    }
}

int MemberTable::PlaceOf(const NarrowText &name) const
{
    if (members.size() > FEW)
        return places.value(name, -1);
    for (size_t i = 0; i < members.size(); ++i) {
        if (members[i].name == name)
            return int(i);
    }
    return -1;
}
