// SPDX-License-Identifier: MIT
#include "SortedIds.h"

#include <algorithm>
#include <cstring>

namespace
{

/// A record and eight bytes of its name, so that most comparisons don't need the name itself.
struct Keyed
{
    quint64 head;
    IDRecord *record;
};

using Place = std::vector<Keyed>::iterator;

quint64 Head(const NarrowText &name, qsizetype from)
{
    quint64 head = 0;
    for (qsizetype i = from; i < from + 8; ++i)
        head = head << 8 | (i < name.size() ? quint8(name[i]) : 0U);
    return head;
}

/// The length of the common prefix of all names, in bytes.
qsizetype CommonPrefix(const std::vector<Keyed> &keyed)
{
    const NarrowText &one = keyed.front().record->name;
    qsizetype common = one.size();
    for (const Keyed &key : keyed) {
        const NarrowText &other = key.record->name;
        common = std::min(common, other.size());
        common = std::mismatch(one.begin(), one.begin() + common, other.begin()).first - one.begin();
    }
    return common;
}

/// Sorts names that are equal up to `from` by the next eight bytes, then sorts each group that is still equal in the
/// same way.
void Sort(Place first, Place behind, qsizetype from)
{
    constexpr ptrdiff_t FEW = 12;
    constexpr qsizetype LONGEST = 64; // of a valid name; invalid names may have any common prefix
    if (behind - first <= FEW || from > LONGEST) {
        std::stable_sort(first, behind, [](const Keyed &a, const Keyed &b) { return a.record->name < b.record->name; });
        return;
    }
    for (Place key = first; key != behind; ++key)
        key->head = Head(key->record->name, from);
    std::stable_sort(first, behind, [](const Keyed &a, const Keyed &b) { return a.head < b.head; });
    while (first != behind) {
        const Place end =
            std::find_if(first, behind, [head = first->head](const Keyed &key) { return key.head != head; });
        if (end - first > 1)
            Sort(first, end, from + qsizetype(sizeof(quint64)));
        first = end;
    }
}

} // namespace

std::vector<IDRecord *> SortedIds(const IDPool &pool)
{
    std::vector<Keyed> keyed;
    for (IDRecord *record = pool.sentinel.next; record != &pool.sentinel; record = record->next)
        keyed.push_back({0, record});
    if (!keyed.empty())
        Sort(keyed.begin(), keyed.end(), CommonPrefix(keyed));
    std::vector<IDRecord *> sorted;
    sorted.reserve(keyed.size());
    for (const Keyed &key : keyed)
        sorted.push_back(key.record);
    return sorted;
}
