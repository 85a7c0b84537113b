// SPDX-License-Identifier: MIT
#include "RuleReport.h"

#include "RowNotes.h"
#include "Rules.h"

#include <utility>

RuleReport::RuleReport(const CheckSettings &checkSettings, Sink findingSink)
    : settings(checkSettings), sink(std::move(findingSink))
{
}

bool RuleReport::Begin(const Rule &next)
{
    rule = &next;
    const RuleLevel level = settings.LevelOf(next);
    severity = level == RuleLevel::Error     ? Severity::Error
               : level == RuleLevel::Warning ? Severity::Warning
                                             : Severity::Note;
    return level != RuleLevel::Off;
}

void RuleReport::Add(Finding finding)
{
    if (settings.LevelOf(*rule) == RuleLevel::Off || (!finding.id.isEmpty() && settings.Ignores(*rule, finding.id)))
        return;
    finding.code = rule->id;
    finding.severity = severity;
    sink(std::move(finding));
}

void RuleReport::AddFound(const std::vector<Finding> &findings)
{
    for (const Finding &finding : findings) {
        if (Begin(*FindRule(QString::fromLatin1(finding.code))))
            Add(finding);
    }
}

void RuleReport::AddForRow(const RowNotes &notes, Finding finding)
{
    if (!notes.Ignores(QString::fromLatin1(rule->id)))
        Add(std::move(finding));
}
