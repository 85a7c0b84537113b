// SPDX-License-Identifier: MIT
#pragma once

#include "IDPool.h"

#include <span>

/// A range of numbers for IDs.
struct IdRange
{
    quint32 first;
    quint32 last;
    const char *what; ///< the kind of resources that get them, such as "audio"

    [[nodiscard]] quint32 Size() const { return last - first + 1; }
    [[nodiscard]] bool Has(quint32 number) const { return number >= first && number <= last; }
};

/// The numbers of Normal IDs.
inline constexpr IdRange NORMAL_IDS{1, 99999, "Normal"};
/// The numbers of Push IDs, by `pushKind` - 1. Kinds behind the last have none.
inline constexpr IdRange PUSH_IDS[] = {{100000, 100999, "audio"},  {101000, 101999, "video"},
                                       {102000, 102999, "binary"}, {103000, 103999, "image"},
                                       {104000, 108999, "string"}, {109000, 109999, "other"}};

/// Returns the range from which a record gets its number, or null.
[[nodiscard]] const IdRange *RangeOf(const IDRecord &record);
/// Returns the range that a number is in, or null.
[[nodiscard]] const IdRange *RangeOf(quint32 number);
/// Returns how many numbers of a range the IDs need. `sorted` has the records of a pool (SortedIds).
[[nodiscard]] quint32 CountIn(const IdRange &range, std::span<IDRecord *const> sorted);
/// Returns whether there are numbers for all IDs.
[[nodiscard]] bool FitInRanges(std::span<IDRecord *const> sorted);
