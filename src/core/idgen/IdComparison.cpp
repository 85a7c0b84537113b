// SPDX-License-Identifier: MIT
#include "IdComparison.h"

#include "IdNumbers.h"
#include "IdRanges.h"
#include "ResFolder.h"

#include <QHash>

#include <algorithm>

namespace
{

/// Counts for each new ID the changed IDs of its range that come behind it and have a higher number than before.
void CountMoved(IdComparison &result)
{
    std::vector<quint32> numbers; // of the IDs that have moved up, sorted
    for (const IdComparison::Old &old : result.changed) {
        if (RangeOf(*old.now) == RangeOf(old.before) && *old.now > old.before)
            numbers.push_back(*old.now);
    }
    std::sort(numbers.begin(), numbers.end());
    for (IdComparison::New &added : result.added) {
        const IdRange *const range = RangeOf(added.number);
        if (!range)
            continue;
        const auto begin = std::upper_bound(numbers.begin(), numbers.end(), added.number);
        added.moved = int(std::upper_bound(begin, numbers.end(), range->last) - begin);
    }
}

} // namespace

bool IsOfComponent(const IDRecord &record)
{
    const CResFolder *const folder = record.holders ? record.holders->Folder() : nullptr;
    return folder && folder->kind == KIND_COMPONENT;
}

IdComparison CompareIds(const IdNumbers &old, std::span<IDRecord *const> sorted)
{
    IdComparison result;
    QHash<NarrowText, quint32> now;
    for (const IDRecord *record : sorted) {
        if (now.contains(record->name))
            continue;
        now.insert(record->name, record->value);
        if (!old.Find(record->name) && !IsOfComponent(*record))
            result.added.push_back({record->name, record->value});
    }
    for (const IdNumbers::Entry &entry : old.All()) {
        const auto found = now.constFind(entry.name);
        if (found == now.constEnd())
            result.gone.push_back({entry.name, entry.number, entry.line, std::nullopt});
        else if (*found != entry.number)
            result.changed.push_back({entry.name, entry.number, entry.line, *found});
    }
    CountMoved(result);
    return result;
}
