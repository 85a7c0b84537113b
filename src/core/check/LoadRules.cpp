// SPDX-License-Identifier: MIT
#include "LoadRules.h"

#include "OpeningCheck.h"
#include "RuleReport.h"
#include "Rules.h"

std::vector<Finding> CheckUnopened(Environment &env, const ProcessTables &tables, const QString &path,
                                   const CheckSettings &settings, const std::vector<Finding> &loaded)
{
    std::vector<Finding> findings;
    RuleReport report(settings, [&](Finding &&finding) { findings.push_back(std::move(finding)); });
    report.Begin(*FindRule(u"project-unreadable"));
    for (const Finding &finding : loaded)
        report.Add(finding);
    for (const Finding &reason : OpeningCheck(env, tables, path, nullptr).AllReasons())
        report.Add(reason);
    return findings;
}
