#include "SortedIds.h"

#include <algorithm>
#include <cstring>

namespace
{

/// A record and eight bytes of its name, so that most comparisons need no look into the name itself.
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

/// How many bytes all names have in common.
qsizetype CommonPrefix(Place first, Place behind)
{
    const NarrowText &one = first->record->name;
    qsizetype common = one.size();
    for (Place key = first; key != behind; ++key) {
        const NarrowText &other = key->record->name;
        common = std::min(common, other.size());
        common = std::mismatch(one.begin(), one.begin() + common, other.begin()).first - one.begin();
    }
    return common;
}

/// Sorts by the bytes behind what all names share, then each group that is still equal in the same way.
void Sort(Place first, Place behind, qsizetype sorted)
{
    constexpr ptrdiff_t FEW = 12;
    const qsizetype common = behind - first > FEW ? CommonPrefix(first, behind) : 0;
    if (behind - first <= FEW || common < sorted) {
        // Also where a name ends and another goes on with zeros: their heads are equal, and always will be.
        std::stable_sort(first, behind, [](const Keyed &a, const Keyed &b) { return a.record->name < b.record->name; });
        return;
    }
    for (Place key = first; key != behind; ++key)
        key->head = Head(key->record->name, common);
    std::stable_sort(first, behind, [](const Keyed &a, const Keyed &b) { return a.head < b.head; });
    while (first != behind) {
        const Place end =
            std::find_if(first, behind, [head = first->head](const Keyed &key) { return key.head != head; });
        if (end - first > 1)
            Sort(first, end, common + 8);
        first = end;
    }
}

} // namespace

std::vector<IDRecord *> SortedIds(const IDPool &pool)
{
    std::vector<Keyed> keyed;
    for (IDRecord *record = pool.sentinel.next; record != &pool.sentinel; record = record->next)
        keyed.push_back({0, record});
    Sort(keyed.begin(), keyed.end(), 0);
    std::vector<IDRecord *> sorted;
    sorted.reserve(keyed.size());
    for (const Keyed &key : keyed)
        sorted.push_back(key.record);
    return sorted;
}
