// SPDX-License-Identifier: MIT
#include "TextLimits.h"

TextLimit LimitOf(const CheckSettings &settings, QStringView id, const RowNotes &notes)
{
    TextLimit limit;
    for (const TextLimit &candidate : settings.limits) {
        if (MatchesPattern(id, candidate.pattern)) {
            limit = candidate;
            break;
        }
    }
    limit.length = notes.length > 0 ? notes.length : limit.length;
    limit.width = notes.width > 0 ? notes.width : limit.width;
    limit.lines = notes.lines > 0 ? notes.lines : limit.lines;
    return limit;
}
