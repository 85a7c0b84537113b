// SPDX-License-Identifier: MIT
#include "DefaultIds.h"

#include "Environment.h"
#include "IdNames.h"

#include <limits>

IDRecord *DefaultIds::Allocate(const QString &name, qint16 scope)
{
    if (IDRecord *record = pool.Allocate(env.WideToNarrow(name), scope))
        return record;
    if (departures != pool.Departures()) {
        departures = pool.Departures();
        next.clear();
    }
    constexpr qint64 LIMIT = std::numeric_limits<int>::max();
    int digits = 1;
    for (qint64 first = 1; first < LIMIT; first *= 10, ++digits) {
        const qint64 end = std::min(first * 10, LIMIT);
        const Stem stem{name.left(MAX_ID_NAME - digits), digits, scope};
        auto counter = next.find(stem);
        if (counter == next.end())
            counter = next.insert(stem, int(first));
        while (*counter < end) {
            const int number = (*counter)++;
            if (IDRecord *record = pool.Allocate(env.WideToNarrow(AppendCounter(name, number)), scope))
                return record;
        }
    }
    return nullptr;
}
