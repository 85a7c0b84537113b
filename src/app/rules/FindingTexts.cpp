// SPDX-License-Identifier: MIT
#include "FindingTexts.h"

#include "Rules.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr Severity SEVERITIES[] = {Severity::Error, Severity::Warning, Severity::Note};

int CountOf(const FindingCounts &counts, Severity severity)
{
    return severity == Severity::Error ? counts.errors : severity == Severity::Warning ? counts.warnings : counts.notes;
}

QString PositionText(const FindingList &list, int row)
{
    return u"%1 of %2, "_s.arg(row + 1).arg(list.RowCount()) +
           QString::fromLatin1(SeverityWord(list.At(row).severity)) + u": "_s;
}

} // namespace

QString CountText(const FindingCounts &counts, Severity severity)
{
    const int count = CountOf(counts, severity);
    return QString::number(count) + u' ' + QString::fromLatin1(SeverityWord(severity)) + (count == 1 ? u""_s : u"s"_s);
}

QString CountsText(const FindingCounts &counts)
{
    QStringList parts;
    for (const Severity severity : SEVERITIES) {
        if (CountOf(counts, severity) > 0)
            parts.append(CountText(counts, severity));
    }
    return parts.isEmpty() ? u"no findings"_s : parts.join(u", "_s);
}

QString ShortCountsText(const FindingCounts &counts)
{
    for (const Severity severity : SEVERITIES) {
        if (CountOf(counts, severity) > 0)
            return CountText(counts, severity);
    }
    return CountsText(counts);
}

QString EmptyListText(CheckState state, const FindingList &list)
{
    if (state == CheckState::NoProject)
        return u"Open a project to see what the check finds in it."_s;
    if (list.AllCount() > 0)
        return list.AllCount() == 1 ? u"The filter hides the finding."_s
                                    : u"The filter hides all %1 findings."_s.arg(list.AllCount());
    return state == CheckState::Checking ? u"Checking\u2026"_s : u"No findings"_s;
}

QString StepText(const FindingList &list, int row, bool isPlaceTold)
{
    QString text = PositionText(list, row) + MessageOf(list.Checked(), list.At(row));
    const QString place = isPlaceTold ? list.CellText(row, FindingList::PLACE_COLUMN) : QString();
    if (!place.isEmpty())
        text += u" ("_s + place + u')';
    return text.replace(u'\n', u' ').remove(u'\r');
}

QString GoneText(const FindingList &list, int row)
{
    const QString place = list.CellText(row, FindingList::PLACE_COLUMN);
    const QString text = PositionText(list, row) + u"the project has no resource "_s + list.At(row).id;
    return place.isEmpty() ? text : text + u" ("_s + place + u')';
}

QString RuleText(const Finding &finding)
{
    const Rule *const rule = FindRule(QString::fromLatin1(finding.code));
    return rule ? u"%1: %2.\n%3"_s.arg(QString::fromLatin1(rule->id), QString::fromUtf8(rule->summary),
                                       QString::fromUtf8(rule->explanation))
                : QString();
}
