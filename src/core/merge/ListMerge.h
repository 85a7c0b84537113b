// SPDX-License-Identifier: MIT
#pragma once

#include "ListElement.h"
#include "MergeOrder.h"

#include <QStringList>

#include <optional>

/// Merges three versions of a resource list, element by element, each with its attributes and its text. Elements belong
/// together if they have the same key in the same place.
class ListMerge
{
public:
    explicit ListMerge(OnConflict conflict) : onConflict(conflict) {}

    /// Returns the merged element, without the conflicts that it has in it as a whole.
    [[nodiscard]] ListElement Merge(const ListElement &base, const ListElement &ours, const ListElement &theirs);

    QStringList conflicts; ///< as in MergeResult

private:
    using Versions = std::array<const ListElement *, MERGE_SIDES>; // null where it is missing

    [[nodiscard]] ListElement MergeChild(const Versions &versions);
    [[nodiscard]] ListElement MergeLeaf(const Versions &versions);
    void MergeAttributes(const ListElement &base, ListElement &ours, ListElement &theirs,
                         QStringList &inConflict) const;
    void MergeChildren(const ListElement &base, const ListElement &ours, const ListElement &theirs,
                       ListElement &merged);
    [[nodiscard]] ListElement Conflict(const Versions &versions, const QString &what);

    const OnConflict onConflict;
};
