// SPDX-License-Identifier: MIT
#include "SortedIds.h"

#include "Environment.h"
#include "IDGen.h"

#include <array>

namespace
{

constexpr quint32 LAST_NORMAL = 99999;

/// The numbers of one class of push resources.
struct PushRange
{
    quint32 next;
    quint32 last;
    const char *what;
};

/// By `pushKind`; kind 0 has no range.
using PushRanges = std::array<PushRange, 7>;

PushRanges FreshRanges()
{
    return {{{0, 0, ""},
             {100000, 100999, "audio"},
             {101000, 101999, "video"},
             {102000, 102999, "binary"},
             {103000, 103999, "image"},
             {104000, 108999, "string"},
             {109000, 109999, "other"}}};
}

} // namespace

int IDGen::FillValue(Environment &env, IDPool *pool)
{
    if (!pool) {
        env.DebugTrace("enter IDGen::FillValue()");
        env.DebugTrace("enter IDGen::FillValue(): empty idpool");
        return -1;
    }
    return FillSorted(env, SortedIds(*pool));
}

int FillSorted(Environment &env, const std::vector<IDRecord *> &sorted)
{
    env.DebugTrace("enter IDGen::FillValue()");
    quint32 nextNormal = 1;
    PushRanges ranges = FreshRanges();
    const IDRecord *first = nullptr; // of the records with the same name
    for (IDRecord *record : sorted) {
        if (first && first->name == record->name) {
            record->value = first->value;
            continue;
        }
        first = record;
        if (!record->push) {
            if (nextNormal > LAST_NORMAL) {
                env.DebugTrace("enter IDGen::FillValue(): ID value overflow, non-push ID cannot larger than%u",
                               LAST_NORMAL);
                env.ExplainFailure(
                    QStringLiteral("there are more IDs than there are numbers for them; the last number is %1, and "
                                   "\"%2\" is the first ID without one. Remove resources from the project")
                        .arg(LAST_NORMAL)
                        .arg(env.NarrowToWide(record->name)));
                return -2;
            }
            record->value = nextNormal++;
        } else if (record->pushKind >= 1 && size_t(record->pushKind) < ranges.size()) {
            PushRange &range = ranges[size_t(record->pushKind)];
            if (range.next > range.last) {
                env.DebugTrace("enter IDGen::FillValue(): ID value overflow, push %s ID cannot larger than%u",
                               range.what, range.last);
                env.ExplainFailure(QStringLiteral("there are more Push resources of the class \"%1\" than there are "
                                                  "numbers for them; the last number is %2, and \"%3\" is the first ID "
                                                  "without one. Change the type of some of them to Normal")
                                       .arg(QLatin1String(range.what))
                                       .arg(range.last)
                                       .arg(env.NarrowToWide(record->name)));
                return -2;
            }
            record->value = range.next++;
        }
    }
    env.DebugTrace("leave IDGen::FillValue()");
    return 0;
}
