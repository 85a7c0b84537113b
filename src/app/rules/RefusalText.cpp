// SPDX-License-Identifier: MIT
#include "RefusalText.h"

QString RefusalText(const QStringList &refusals)
{
    const QString text = refusals.first(qMin(refusals.size(), MOST_REFUSALS)).join(u'\n');
    const qsizetype more = refusals.size() - MOST_REFUSALS;
    return more <= 0 ? text : text + QStringLiteral("\n... and %1 more; the output lists them all").arg(more);
}
