// SPDX-License-Identifier: MIT
#include "RuleReport.h"

#include "Paths.h"
#include "RowNotes.h"
#include "Rules.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// Returns whether the ID of a row is in fact a line that a merge left in the string file. The rule "conflict-marker"
/// reports the conflict.
bool IsConflictMarker(const QString &id)
{
    return id.startsWith(u"<<<<<<<"_s) || id.startsWith(u"======="_s) || id.startsWith(u">>>>>>>"_s) ||
           id.startsWith(u"|||||||"_s);
}

} // namespace

QString WithRelativePaths(const QString &text, const QString &folder)
{
    const QString prefix = folder + u'/';
    constexpr QStringView BEFORE = u" \"'("; // otherwise it is the end of a longer path
    QString relative = text;
    for (qsizetype at = relative.indexOf(prefix); at >= 0; at = relative.indexOf(prefix, at)) {
        if (at == 0 || BEFORE.contains(relative[at - 1]))
            relative.remove(at, prefix.size());
        else
            at += prefix.size();
    }
    return relative;
}

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
    if (settings.LevelOf(*rule) == RuleLevel::Off)
        return;
    if (!finding.id.isEmpty() && (settings.Ignores(*rule, finding.id) || IsConflictMarker(finding.id)))
        return;
    finding.code = rule->id;
    finding.severity = severity;
    if (finding.text.contains(u'/'))
        finding.text = WithRelativePaths(finding.text, DirectoryOf(settings.file));
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
