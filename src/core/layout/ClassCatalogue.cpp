#include "ClassCatalogue.h"

const ClassDescriptor *ClassCatalogue::Find(const NarrowText &name) const
{
    for (const auto &entry : entries) {
        if (entry->name == name)
            return entry.get();
    }
    return nullptr;
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
