#include "OpeningReport.h"

bool TellOfOpening(Session &session, const QString &project, CResDoc *doc, bool strict)
{
    const OpeningCheck check(session.env, session.tables, project, doc);
    const std::vector<LoadFinding> reasons = strict ? check.AllReasons() : check.SilentReasons();
    session.report.Flush();
    for (const LoadFinding &reason : reasons)
        Complain(FindingText(reason));
    return reasons.empty() || !strict;
}
