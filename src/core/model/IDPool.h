// SPDX-License-Identifier: MIT
#pragma once

#include "Notifier.h"
#include "Text.h"

#include <vector>

class CBaseRes;
class IDPool;
class IEspia;

/// What a push ID belongs to. It determines the range of its number.
enum PushKind : qint32
{
    PUSH_NONE = 0,
    PUSH_AUDIO = 1,
    PUSH_VIDEO = 2,
    PUSH_BINARY = 3,
    PUSH_IMAGE = 4,
    PUSH_STRING = 5,
};

/// Not tied to one resolution.
inline constexpr qint16 ANY_RESOLUTION = -1;

/// One symbolic ID. Reference-counted: it exists while `refs` is at least 1. When its last holder releases it, it
/// leaves its pool and is deleted.
class IDRecord
{
public:
    NarrowText name;               ///< at most 64 characters; change it only through `Rename`
    quint32 value = 0;             ///< 0 until IDs are numbered; never stored
    qint16 scope = ANY_RESOLUTION; ///< a resolution index, or ANY_RESOLUTION
    qint32 refs = 1;
    qint32 pushKind = PUSH_NONE;
    bool push = false;
    IDRecord *prev = nullptr; ///< older record of the pool
    IDRecord *next = nullptr; ///< newer record of the pool

    /// The newest of the resources that have this ID; `Holders` iterates over all of them.
    CBaseRes *holders = nullptr;

    /// The observer of the resources that have this ID; null for none, and after the pool is destroyed.
    [[nodiscard]] inline IEspia *Observer() const;

    /// Changes the name. Returns false, and changes nothing, when another record has the name in the same scope, or has
    /// it while one of the two scopes is ANY_RESOLUTION.
    bool Rename(IDPool &pool, const NarrowText &newName);
    void AddRef() { ++refs; }
    /// Decrements `refs`. At 0 the record leaves its pool and is deleted.
    void Release();

private:
    friend class IDPool;
    IDRecord() = default;
    ~IDRecord() = default;

    IDPool *owner = nullptr;
    quint64 serial = 0;               // higher for newer records of the pool
    IDRecord *nextOfName = nullptr;   // next newer record of the same name
    IDRecord *nextInBucket = nullptr; // oldest record of the next name; only set in the oldest record of a name
    quint32 hash = 0;                 // of the name
};

/// The live IDs of one document, oldest first.
///
/// Each resolution can have a name once. While a record of scope ANY_RESOLUTION has a name, no other record can have
/// that name. The pool doesn't own its records: a record exists while it has holders. Look-ups are hashed. Main thread
/// only.
///
///     IDRecord *logo = pool.Allocate("ID_IMAGE_LOGO", 2);   // null: the name is taken
class IDPool
{
public:
    IDPool();
    ~IDPool();
    IDPool(const IDPool &) = delete;
    IDPool &operator=(const IDPool &) = delete;

    /// While this is 0, `Allocate` doesn't check for conflicts.
    quint8 unique = 1;
    /// The observer of all resources with an ID of this pool; null for none.
    IEspia *observer = nullptr;
    /// Ends the circular list: `sentinel.next` is the oldest record, `sentinel.prev` the newest.
    IDRecord sentinel;

    /// Returns the oldest record of that name in any scope, or null. The sentinel has the empty name.
    [[nodiscard]] IDRecord *FindName(const NarrowText &name);
    /// Returns the record of that name in exactly that scope, or null.
    [[nodiscard]] IDRecord *Find(const NarrowText &name, qint16 scope);
    /// Appends a record with one holder. Null when `name` is taken in `scope`.
    [[nodiscard]] IDRecord *Allocate(const NarrowText &name, qint16 scope);
    /// Reports each name whose last record has left the pool.
    Notifier<const NarrowText &> nameFreed;
    /// How many times a record has left the pool or been renamed. While this number stays the same, no taken name has
    /// become free.
    [[nodiscard]] quint64 Departures() const { return departures; }
    [[nodiscard]] bool IsEmpty() const { return sentinel.next == &sentinel; }
    /// Reserves memory for that many more names.
    void Reserve(size_t more);

private:
    friend class IDRecord;
    [[nodiscard]] bool IsTaken(const NarrowText &name, quint32 hash, qint16 scope) const;
    [[nodiscard]] IDRecord *Oldest(const NarrowText &name, quint32 hash) const;
    /// Returns the link to the oldest record of a name, or the null link at the end of the name's bucket.
    [[nodiscard]] IDRecord **LinkOf(const NarrowText &name, quint32 hash);
    void Index(IDRecord *record, quint32 hash);
    void Unindex(IDRecord *record);
    void Unlink(IDRecord *record);
    void Rehash(size_t size);

    // This is a hash table of our own because loading a project of 100,000 names spends much of its time here: the
    // standard one would copy each name and look it up four times.
    std::vector<IDRecord *> buckets; // their number is a power of two; each links the oldest records of its names
    size_t names = 0;
    quint64 nextSerial = 1;
    quint64 departures = 0;
};

IEspia *IDRecord::Observer() const
{
    return owner ? owner->observer : nullptr;
}
