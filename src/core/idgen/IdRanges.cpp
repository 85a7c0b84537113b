// SPDX-License-Identifier: MIT
#include "IdRanges.h"

#include <algorithm>
#include <array>
#include <iterator>

const IdRange *RangeOf(const IDRecord &record)
{
    if (!record.push)
        return &NORMAL_IDS;
    const bool hasRange = record.pushKind >= 1 && size_t(record.pushKind) <= std::size(PUSH_IDS);
    return hasRange ? &PUSH_IDS[record.pushKind - 1] : nullptr;
}

const IdRange *RangeOf(quint32 number)
{
    if (NORMAL_IDS.Has(number))
        return &NORMAL_IDS;
    const auto *const range = std::find_if(std::begin(PUSH_IDS), std::end(PUSH_IDS),
                                           [number](const IdRange &candidate) { return candidate.Has(number); });
    return range == std::end(PUSH_IDS) ? nullptr : range;
}

quint32 CountIn(const IdRange &range, std::span<IDRecord *const> sorted)
{
    quint32 count = 0;
    const IDRecord *first = nullptr; // of the records with the same name, which share a number
    for (const IDRecord *record : sorted) {
        if (first && first->name == record->name)
            continue;
        first = record;
        count += RangeOf(*record) == &range;
    }
    return count;
}

bool FitInRanges(std::span<IDRecord *const> sorted)
{
    quint32 normal = 0;
    std::array<quint32, std::size(PUSH_IDS)> push{};
    const IDRecord *first = nullptr; // of the records with the same name, which share a number
    for (const IDRecord *record : sorted) {
        if (first && first->name == record->name)
            continue;
        first = record;
        const IdRange *const range = RangeOf(*record);
        if (!range)
            continue;
        quint32 &used = range == &NORMAL_IDS ? normal : push[size_t(range - PUSH_IDS)];
        if (++used > range->Size())
            return false;
    }
    return true;
}
