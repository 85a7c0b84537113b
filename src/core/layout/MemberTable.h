#pragma once

#include "ClassCatalogue.h"

/// Which members the objects of a type have: worked out once for a descriptor, for all its objects.
class MemberTable
{
public:
    MemberTable(const ClassDescriptor &definition, const ClassCatalogue &catalogue);

    [[nodiscard]] size_t Count() const { return members.size(); }
    [[nodiscard]] const ClassDescriptor::Item &At(size_t place) const { return members[place]; }
    /// The place of the member of that name, or -1.
    [[nodiscard]] int PlaceOf(const NarrowText &name) const;

private:
    std::vector<ClassDescriptor::Item> members;
    QHash<NarrowText, int> places;
};
