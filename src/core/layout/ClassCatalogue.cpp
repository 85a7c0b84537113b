// SPDX-License-Identifier: MIT
#include "ClassCatalogue.h"

namespace
{

/// Up to this number of entries a linear search is as fast as the table.
constexpr size_t FEW = 8;

} // namespace

const ClassDescriptor *ClassCatalogue::Find(const NarrowText &name) const
{
    if (entries.size() <= FEW) {
        for (const auto &entry : entries) {
            if (entry->name == name)
                return entry.get();
        }
        return nullptr;
    }
    if (placesOf != entries.size()) {
        places.clear();
        placesOf = entries.size();
        for (size_t i = placesOf; i-- > 0;)
            places.insert(entries[i]->name, i);
    }
    const auto found = places.constFind(name);
    return found == places.constEnd() ? nullptr : entries[*found].get();
}

int ClassCatalogue::CollectClassNames(std::vector<NarrowText> &names) const
{
    const size_t before = names.size();
    for (const auto &entry : entries) {
        if (entry->kind == CLASS_CLASS)
            names.push_back(entry->name);
    }
    return int(names.size() - before);
}
