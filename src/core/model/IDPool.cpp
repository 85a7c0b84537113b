#include "IDPool.h"

#include <string_view>

size_t IDPool::Hash::operator()(const NarrowText &name) const noexcept
{
    return std::hash<std::string_view>()({name.constData(), size_t(name.size())});
}

IDPool::IDPool()
{
    sentinel.scope = -16;
    sentinel.prev = sentinel.next = &sentinel;
}

IDPool::~IDPool()
{
    // Records that outlive their pool have nothing left to leave.
    for (IDRecord *record = sentinel.next; record != &sentinel; record = record->next)
        record->owner = nullptr;
}

void IDPool::Reserve(size_t more)
{
    byName.reserve(byName.size() + more);
}

void IDPool::Index(IDRecord *record)
{
    IDRecord *&oldest = byName.try_emplace(record->name, nullptr).first->second;
    IDRecord **place = &oldest;
    while (*place && (*place)->serial < record->serial)
        place = &(*place)->nextOfName;
    record->nextOfName = *place;
    *place = record;
}

void IDPool::Unindex(IDRecord *record)
{
    const auto found = byName.find(record->name);
    IDRecord **place = &found->second;
    while (*place != record)
        place = &(*place)->nextOfName;
    *place = record->nextOfName;
    record->nextOfName = nullptr;
    if (!found->second)
        byName.erase(found);
}

void IDPool::Unlink(IDRecord *record)
{
    Unindex(record);
    record->prev->next = record->next;
    record->next->prev = record->prev;
}

IDRecord *IDPool::FindName(const NarrowText &name)
{
    if (name.isEmpty())
        return &sentinel;
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : found->second;
}

IDRecord *IDPool::Find(const NarrowText &name, qint16 scope)
{
    if (name.isEmpty() && scope == sentinel.scope)
        return &sentinel;
    const auto found = byName.find(name);
    IDRecord *record = found == byName.end() ? nullptr : found->second;
    while (record && record->scope != scope)
        record = record->nextOfName;
    return record;
}

bool IDPool::HasSeveral(const NarrowText &name) const
{
    const auto found = byName.find(name);
    return found != byName.end() && found->second->nextOfName;
}

bool IDPool::IsTaken(const NarrowText &name, qint16 scope)
{
    if (scope == ANY_RESOLUTION && FindName(name))
        return true;
    return Find(name, scope) || Find(name, ANY_RESOLUTION);
}

IDRecord *IDPool::Allocate(const NarrowText &name, qint16 scope)
{
    if (unique && IsTaken(name, scope))
        return nullptr;
    auto *record = new IDRecord;
    record->name = name;
    record->scope = scope;
    record->owner = this;
    record->serial = nextSerial++;
    record->prev = sentinel.prev;
    record->next = &sentinel;
    sentinel.prev->next = record;
    sentinel.prev = record;
    Index(record);
    return record;
}

bool IDRecord::Rename(IDPool &pool, const NarrowText &newName)
{
    if (name == newName)
        return true;
    if (pool.IsTaken(newName, scope))
        return false;
    if (owner)
        owner->Unindex(this);
    name = newName;
    if (owner)
        owner->Index(this);
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
