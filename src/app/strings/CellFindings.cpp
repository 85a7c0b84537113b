// SPDX-License-Identifier: MIT
#include "CellFindings.h"

#include "CellLine.h"
#include "CheckOutput.h"
#include "ProjectCheck.h"
#include "SeverityIcons.h"
#include "StringTable.h"

#include <algorithm>

std::vector<const Finding *> FindingsOfCell(const ProjectCheck &check, const StringTable &table, int row, int col)
{
    const bool isOfRow = col == StringTable::ID_COLUMN;
    const CStringRes *const head = table.Head(row);
    if (!head || (!isOfRow && col < StringTable::FIRST_LANGUAGE_COLUMN))
        return {};
    const qint32 language = isOfRow ? -1 : table.Languages()[size_t(col - StringTable::FIRST_LANGUAGE_COLUMN)];
    std::vector<const Finding *> findings = check.AboutRow(*head);
    std::erase_if(findings, [language](const Finding *finding) { return finding->language != language; });
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding *a, const Finding *b) { return a->severity < b->severity; });
    return findings;
}

QVariant MarkOf(const std::vector<const Finding *> &findings)
{
    return findings.empty() ? QVariant() : int(IconOf(findings.front()->severity));
}

QStringList FindingLines(const std::vector<const Finding *> &findings)
{
    QStringList lines;
    for (const Finding *finding : findings)
        lines.append(QStringLiteral("%1: %2 [%3]")
                         .arg(QLatin1StringView(SeverityWord(finding->severity)),
                              CellLine(finding->text, LONGEST_SHOWN), QLatin1StringView(finding->code)));
    return lines;
}
