#pragma once

#include "Notifier.h"
#include "Text.h"

#include <vector>

class CBaseRes;
class IDPool;

/// What a push ID belongs to; decides the range of its number.
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

/// One symbolic ID. Counted: lives while `refs` is at least 1, and leaves its pool by itself with its last holder.
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

    /// The resources that bear this ID, linked through CBaseRes::nextHolder.
    CBaseRes *holders = nullptr;

    /// Gives the record another name. False, and no change, when the name is taken in its scope, or everywhere.
    bool Rename(IDPool &pool, const NarrowText &newName);
    void AddRef() { ++refs; }
    /// Below one holder the record unlinks itself and is deleted.
    void Release();

private:
    friend class IDPool;
    IDRecord() = default;
    ~IDRecord() = default;

    IDPool *owner = nullptr;
    quint64 serial = 0;               // rises with the place in the pool
    size_t hash = 0;                  // of the name
    IDRecord *nextOfName = nullptr;   // next newer record of the same name
    IDRecord *nextInBucket = nullptr; // oldest record of another name; set for the oldest of a name only
};

/// The live IDs of one document, oldest first.
///
/// A name may stand once per resolution; with scope ANY_RESOLUTION it shuts out the same name everywhere. Owns nothing:
/// a record lives while it has holders. Look-ups are hashed. Main thread only.
///
///     IDRecord *logo = pool.Allocate("ID_IMAGE_LOGO", 2);   // null: the name is taken
class IDPool
{
public:
    IDPool();
    ~IDPool();
    IDPool(const IDPool &) = delete;
    IDPool &operator=(const IDPool &) = delete;

    /// While it is 0, `Allocate` makes no test for conflicts.
    quint8 unique = 1;
    /// Ends the circular list: `sentinel.next` is the oldest record, `sentinel.prev` the newest.
    IDRecord sentinel;

    /// The oldest record of that name in any scope. The sentinel bears the empty name.
    [[nodiscard]] IDRecord *FindName(const NarrowText &name);
    /// The same, of exactly that scope.
    [[nodiscard]] IDRecord *Find(const NarrowText &name, qint16 scope);
    /// Appends a record with one holder, or gives null when `name` is taken in `scope`.
    [[nodiscard]] IDRecord *Allocate(const NarrowText &name, qint16 scope);
    /// Tells of each name whose last record has left the pool.
    Notifier<const NarrowText &> nameFreed;
    [[nodiscard]] bool IsEmpty() const { return sentinel.next == &sentinel; }
    /// Makes room for that many more names.
    void Reserve(size_t more);

private:
    friend class IDRecord;
    [[nodiscard]] bool IsTaken(const NarrowText &name, size_t hash, qint16 scope) const;
    [[nodiscard]] IDRecord *Oldest(const NarrowText &name, size_t hash) const;
    /// The link that leads to the oldest record of a name, or to nothing at the end of the name's bucket.
    [[nodiscard]] IDRecord **LinkOf(const NarrowText &name, size_t hash);
    void Index(IDRecord *record, size_t hash);
    void Unindex(IDRecord *record);
    void Unlink(IDRecord *record);
    void Rehash(size_t size);

    // A hash table of our own, since a project of 100,000 names spends a good part of its loading here: the standard's
    // would copy each name and look each up four times.
    std::vector<IDRecord *> buckets; // a power of two of them, each the oldest records of its names
    size_t names = 0;
    quint64 nextSerial = 1;
};
