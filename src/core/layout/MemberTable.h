// SPDX-License-Identifier: MIT
#pragma once

#include "ClassCatalogue.h"

/// The members that the objects of a type have. Computed once for a descriptor and shared by all its objects.
class MemberTable
{
public:
    MemberTable(const ClassDescriptor &definition, const ClassCatalogue &catalogue);

    [[nodiscard]] size_t Count() const { return members.size(); }
    [[nodiscard]] const ClassDescriptor::Item &At(size_t place) const { return members[place]; }
    /// The index of the member with that name, or -1.
    [[nodiscard]] int PlaceOf(const NarrowText &name) const;

private:
    std::vector<ClassDescriptor::Item> members;
    QHash<NarrowText, int> places;
};
