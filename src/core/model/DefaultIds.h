// SPDX-License-Identifier: MIT
#pragma once

#include "IDPool.h"

#include <QHash>

class Environment;

/// Makes IDs with unique names: a name that is taken gets a counter at its end. The last of many equal names takes no
/// longer than the first, because this class remembers up to which counter a name is taken.
class DefaultIds
{
public:
    DefaultIds(const Environment &environment, IDPool &idPool) : env(environment), pool(idPool) {}

    /// Makes an ID of that name in `scope`. If the name is taken, appends the lowest free counter, from 1, to the name,
    /// which is shortened so that the result has at most MAX_ID_NAME characters. Null when every counter is taken.
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
    quint64 departures = 0; // of the pool, when `next` was filled
};
