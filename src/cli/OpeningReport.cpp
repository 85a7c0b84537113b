// SPDX-License-Identifier: MIT
#include "OpeningReport.h"

bool TellOfOpening(Session &session, const QString &project, CResDoc *doc, bool strict)
{
    const OpeningCheck check(session.env, session.tables, project, doc);
    const std::vector<Finding> reasons = strict ? check.AllReasons() : check.SilentReasons();
    session.report.Flush();
    for (const Finding &reason : reasons)
        Complain(FindingText(reason));
    return reasons.empty() || !strict;
}
