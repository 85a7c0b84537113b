// SPDX-License-Identifier: MIT
#include "SortedIds.h"

#include "Environment.h"
#include "IDGen.h"
#include "IdRanges.h"

#include <array>

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
    quint32 nextNormal = NORMAL_IDS.first;
    std::array<quint32, std::size(PUSH_IDS)> usedPush{};
    const IDRecord *first = nullptr; // of the records with the same name
    for (IDRecord *record : sorted) {
        if (first && first->name == record->name) {
            record->value = first->value;
            continue;
        }
        first = record;
        if (!record->push) {
            if (nextNormal > NORMAL_IDS.last) {
                env.DebugTrace("enter IDGen::FillValue(): ID value overflow, non-push ID cannot larger than%u",
                               NORMAL_IDS.last);
                env.ExplainFailure(
                    QStringLiteral("there are more IDs than there are numbers for them; the last number is %1, and "
                                   "\"%2\" is the first ID without one. Remove resources from the project")
                        .arg(NORMAL_IDS.last)
                        .arg(env.NarrowToWide(record->name)));
                return -2;
            }
            record->value = nextNormal++;
        } else if (const IdRange *const range = RangeOf(*record)) {
            quint32 &used = usedPush[size_t(range - PUSH_IDS)];
            if (used == range->Size()) {
                env.DebugTrace("enter IDGen::FillValue(): ID value overflow, push %s ID cannot larger than%u",
                               range->what, range->last);
                env.ExplainFailure(QStringLiteral("there are more Push resources of the class \"%1\" than there are "
                                                  "numbers for them; the last number is %2, and \"%3\" is the first ID "
                                                  "without one. Change the type of some of them to Normal")
                                       .arg(QLatin1String(range->what))
                                       .arg(range->last)
                                       .arg(env.NarrowToWide(record->name)));
                return -2;
            }
            record->value = range->first + used++;
        }
    }
    env.DebugTrace("leave IDGen::FillValue()");
    return 0;
}
