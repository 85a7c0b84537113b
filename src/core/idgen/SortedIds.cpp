#include "SortedIds.h"

#include <algorithm>
#include <cstring>

namespace
{

/// A record and the bytes of its name behind the part that all names share, so that most comparisons need no look into
/// the name itself.
struct Keyed
{
    quint64 head;
    IDRecord *record;
};

qsizetype CommonPrefix(const NarrowText &a, const NarrowText &b)
{
    const auto end = std::mismatch(a.begin(), a.begin() + std::min(a.size(), b.size()), b.begin()).first;
    return end - a.begin();
}

quint64 Head(const NarrowText &name, qsizetype from)
{
    quint64 head = 0;
    for (qsizetype i = from; i < from + 8; ++i)
        head = head << 8 | (i < name.size() ? quint8(name[i]) : 0u);
    return head;
}

} // namespace

std::vector<IDRecord *> SortedIds(const IDPool &pool)
{
    std::vector<Keyed> keyed;
    qsizetype common = -1;
    for (IDRecord *record = pool.sentinel.next; record != &pool.sentinel; record = record->next) {
        const NarrowText &oldest = pool.sentinel.next->name;
        common = common < 0 ? record->name.size() : std::min(common, CommonPrefix(oldest, record->name));
        keyed.push_back({0, record});
    }
    for (Keyed &key : keyed)
        key.head = Head(key.record->name, common);
    std::stable_sort(keyed.begin(), keyed.end(), [](const Keyed &a, const Keyed &b) {
        return a.head != b.head ? a.head < b.head : a.record->name < b.record->name;
    });
    std::vector<IDRecord *> sorted;
    sorted.reserve(keyed.size());
    for (const Keyed &key : keyed)
        sorted.push_back(key.record);
    return sorted;
}
