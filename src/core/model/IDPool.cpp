// SPDX-License-Identifier: MIT
#include "IDPool.h"

#include <bit>
#include <string_view>
#include <utility>

namespace
{

constexpr size_t FEWEST_BUCKETS = 16;

quint32 HashOf(const NarrowText &name)
{
    return quint32(std::hash<std::string_view>()({name.constData(), size_t(name.size())}));
}

} // namespace

IDPool::IDPool() : buckets(FEWEST_BUCKETS)
{
    sentinel.scope = -16;
    sentinel.prev = sentinel.next = &sentinel;
}

IDPool::~IDPool()
{
    // Records can outlive their pool; they must not unlink themselves from it then.
    for (IDRecord *record = sentinel.next; record != &sentinel; record = record->next)
        record->owner = nullptr;
}

void IDPool::Reserve(size_t more)
{
    if (names + more > buckets.size())
        Rehash(std::bit_ceil(names + more));
}

void IDPool::Rehash(size_t size)
{
    std::vector<IDRecord *> old(size);
    old.swap(buckets);
    for (IDRecord *first : old) {
        while (first) {
            IDRecord *&bucket = buckets[first->hash & (size - 1)];
            IDRecord *const next = first->nextInBucket;
            first->nextInBucket = bucket;
            bucket = first;
            first = next;
        }
    }
}

IDRecord **IDPool::LinkOf(const NarrowText &name, quint32 hash)
{
    IDRecord **link = &buckets[hash & (buckets.size() - 1)];
    while (*link && ((*link)->hash != hash || (*link)->name != name))
        link = &(*link)->nextInBucket;
    return link;
}

IDRecord *IDPool::Oldest(const NarrowText &name, quint32 hash) const
{
    return *const_cast<IDPool *>(this)->LinkOf(name, hash);
}

void IDPool::Index(IDRecord *record, quint32 hash)
{
    record->hash = hash;
    IDRecord **link = LinkOf(record->name, hash);
    IDRecord *const oldest = *link;
    if (!oldest) {
        *link = record;
        if (++names > buckets.size())
            Rehash(buckets.size() * 4);
    } else if (oldest->serial > record->serial) {
        *link = record;
        record->nextInBucket = std::exchange(oldest->nextInBucket, nullptr);
        record->nextOfName = oldest;
    } else {
        IDRecord **place = &oldest->nextOfName;
        while (*place && (*place)->serial < record->serial)
            place = &(*place)->nextOfName;
        record->nextOfName = std::exchange(*place, record);
    }
}

void IDPool::Unindex(IDRecord *record)
{
    ++departures;
    IDRecord **link = LinkOf(record->name, record->hash);
    IDRecord *const inBucket = std::exchange(record->nextInBucket, nullptr);
    IDRecord *const next = std::exchange(record->nextOfName, nullptr);
    if (*link != record) {
        IDRecord **place = &(*link)->nextOfName;
        while (*place != record)
            place = &(*place)->nextOfName;
        *place = next;
    } else if (next) {
        *link = next;
        next->nextInBucket = inBucket;
    } else {
        *link = inBucket;
        --names;
        nameFreed.Tell(record->name);
    }
}

void IDPool::Unlink(IDRecord *record)
{
    Unindex(record);
    record->prev->next = record->next;
    record->next->prev = record->prev;
}

IDRecord *IDPool::FindName(const NarrowText &name)
{
    return name.isEmpty() ? &sentinel : Oldest(name, HashOf(name));
}

IDRecord *IDPool::Find(const NarrowText &name, qint16 scope)
{
    if (name.isEmpty() && scope == sentinel.scope)
        return &sentinel;
    IDRecord *record = Oldest(name, HashOf(name));
    while (record && record->scope != scope)
        record = record->nextOfName;
    return record;
}

bool IDPool::IsTaken(const NarrowText &name, quint32 hash, qint16 scope) const
{
    const IDRecord *record = Oldest(name, hash);
    if (name.isEmpty() && (scope == ANY_RESOLUTION || scope == sentinel.scope))
        return true; // the sentinel has it
    if (scope == ANY_RESOLUTION)
        return record;
    while (record && record->scope != scope && record->scope != ANY_RESOLUTION)
        record = record->nextOfName;
    return record;
}

IDRecord *IDPool::Allocate(const NarrowText &name, qint16 scope)
{
    const quint32 hash = HashOf(name);
    if (unique && IsTaken(name, hash, scope))
        return nullptr;
    auto *record = new IDRecord;
    record->name = NarrowText(name.constData(), name.size()); // a text that was converted has room for three times that
    record->scope = scope;
    record->owner = this;
    record->serial = nextSerial++;
    record->prev = sentinel.prev;
    record->next = &sentinel;
    sentinel.prev->next = record;
    sentinel.prev = record;
    Index(record, hash);
    return record;
}

bool IDRecord::Rename(IDPool &pool, const NarrowText &newName)
{
    if (name == newName)
        return true;
    if (pool.IsTaken(newName, HashOf(newName), scope))
        return false;
    if (owner)
        owner->Unindex(this);
    name = newName;
    if (owner)
        owner->Index(this, HashOf(newName));
    return true;
}

void IDRecord::Release()
{
    if (--refs >= 1)
        return;
    if (owner)
        owner->Unlink(this);
    delete this;
}
