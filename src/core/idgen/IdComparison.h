// SPDX-License-Identifier: MIT
#pragma once

#include "IDPool.h"

#include <optional>
#include <span>
#include <vector>

class IdNumbers;

/// What firmware that was compiled with an earlier header would get wrong: the IDs whose numbers differ.
struct IdComparison
{
    /// An ID of the earlier header.
    struct Old
    {
        NarrowText name;
        quint32 before = 0;
        int line = 0;               ///< of the earlier header
        std::optional<quint32> now; ///< nullopt if the project no longer has the ID
    };
    struct New
    {
        NarrowText name;
        quint32 number = 0;
        int moved = 0; ///< how many of the changed IDs have a higher number because of it
    };

    std::vector<Old> changed; ///< in the order of the earlier header
    std::vector<Old> gone;    ///< the same
    std::vector<New> added;   ///< sorted by name; without the images of components, which have headers of their own

    [[nodiscard]] bool IsSame() const { return changed.empty() && gone.empty(); }
};

/// Returns whether an ID is that of a component's image. Each component has a header of its own.
[[nodiscard]] bool IsOfComponent(const IDRecord &record);

/// Compares an earlier header with the present numbers. `sorted` has the records of a pool (SortedIds) with their
/// values.
[[nodiscard]] IdComparison CompareIds(const IdNumbers &old, std::span<IDRecord *const> sorted);
