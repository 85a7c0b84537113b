#pragma once

#include "IDPool.h"

#include <QHash>

class Environment;

/// Gives IDs names of their own, with a counter behind those that are taken. Takes no longer for the last of many equal
/// names than for the first, since it knows up to which counter a name is taken.
class DefaultIds
{
public:
    DefaultIds(const Environment &environment, IDPool &idPool) : env(environment), pool(idPool) {}

    /// Makes an ID of that name in `scope`. If it is taken, the name's beginning gets the lowest counter from 1 on that
    /// is free; the whole has at most MAX_ID_NAME characters. Null when every counter is taken.
    [[nodiscard]] IDRecord *Allocate(const QString &name, qint16 scope);

private:
    /// The part of a name that comes before its counter.
    struct Stem
    {
        QString text;
        int digits; // of the counter
        qint16 scope;

        bool operator==(const Stem &) const = default;
        friend size_t qHash(const Stem &stem, size_t seed = 0)
        {
            return qHashMulti(seed, stem.text, stem.digits, stem.scope);
        }
    };

    const Environment &env;
    IDPool &pool;
    QHash<Stem, int> next;  // all counters below are taken, as long as no ID has left the pool
    quint64 departures = 0; // of the pool, when that was found out
};
