// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QHash>

#include <memory>
#include <vector>

class MemberTable;

enum ClassKind : qint32
{
    CLASS_CLASS = 1,
    CLASS_STRUCTURE = 2,
    CLASS_ENUMERATION = 3,
};

/// A class of components, a structure or an enumeration.
struct ClassDescriptor
{
    struct Item
    {
        NarrowText name;     ///< of a member, or an enumerator
        NarrowText typeName; ///< of a member
    };

    NarrowText name;
    NarrowText baseName; ///< of a class's base; empty for none
    qint32 kind = CLASS_CLASS;
    bool excluded = false; ///< not offered for new components
    std::vector<Item> items;
    /// Made from the items when the first object of this type is made; the items must not change after that.
    mutable std::shared_ptr<const MemberTable> table;
};

/// The types of layouts, apart from the built-in ones. Empty unless a file of definitions was read.
///
/// Entries are only added at the end and keep their names, since look-ups use a hash table. Main thread only.
class ClassCatalogue
{
public:
    std::vector<std::unique_ptr<ClassDescriptor>> entries;
    QString path;        ///< of the file it was read from
    bool loaded = false; ///< a file was read

    /// The first entry with exactly that name, of any kind; null if there is none.
    [[nodiscard]] const ClassDescriptor *Find(const NarrowText &name) const;
    /// Appends the names of the classes in the order of the entries. Returns their number.
    int CollectClassNames(std::vector<NarrowText> &names) const;

private:
    mutable QHash<NarrowText, size_t> places; // of the first entry of each name
    mutable size_t placesOf = 0;              // the number of entries in `places`
};
