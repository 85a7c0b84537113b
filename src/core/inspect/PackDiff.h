// SPDX-License-Identifier: MIT
#pragma once

#include "PackParts.h"

class PackNames;

enum class PartChange
{
    Added,
    Removed,
    Changed, ///< has other bytes
    Moved,   ///< has the same bytes, but another number, or another place among those that both files have
};

/// A part in which two packed files differ.
struct DiffRow
{
    PartChange change;
    const PackedPart *before; ///< null if it was added
    const PackedPart *after;  ///< null if it was removed

    [[nodiscard]] const PackedPart &Part() const { return after ? *after : *before; }
    [[nodiscard]] qint64 Before() const { return before ? before->bytes.size() : 0; }
    [[nodiscard]] qint64 After() const { return after ? after->bytes.size() : 0; }
    [[nodiscard]] qint64 Delta() const { return After() - Before(); }
};

/// Compares the parts of two packed files. Entries are matched by name, items and strings by the names of their
/// numbers, and by number if it has none; of several that are equal in that, the first with the first. The rows' deltas
/// add up to the difference of the sizes of all parts. If the parts are those of whole files and there are no rows, the
/// files are equal to the byte. The rows point to the parts. Their order: entries, items, strings by language,
/// prefixes, tables, padding, and what is outside the payload.
[[nodiscard]] std::vector<DiffRow> ComparePacks(const std::vector<PackedPart> &before, const PackNames &namesBefore,
                                                const std::vector<PackedPart> &after, const PackNames &namesAfter);
