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
    bool excluded = false; ///< not offered to whoever makes components
    std::vector<Item> items;
    /// Made of the items with the first object of this type; they stay as they are from then on.
    mutable std::shared_ptr<const MemberTable> table;
};

/// The types that layouts are made of beside the built-in ones. Empty unless a file of definitions was read.
///
/// Entries are added at the end and keep their names: look-ups are hashed. Main thread only.
class ClassCatalogue
{
public:
    std::vector<std::unique_ptr<ClassDescriptor>> entries;
    QString path;        ///< of the file it was read from
    bool loaded = false; ///< a file was read

    /// The first entry of exactly that name, of any kind; null when there is none.
    [[nodiscard]] const ClassDescriptor *Find(const NarrowText &name) const;
    /// Appends the names of the classes, in the order of the entries; how many they are.
    int CollectClassNames(std::vector<NarrowText> &names) const;

private:
    mutable QHash<NarrowText, size_t> places; // of the first entry of each name
    mutable size_t placesOf = 0;              // how many entries the table knows
};
