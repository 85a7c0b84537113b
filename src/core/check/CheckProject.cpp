// SPDX-License-Identifier: MIT
#include "CheckProject.h"

#include "CResDoc.h"
#include "CheckFacts.h"
#include "FileCheckInput.h"
#include "IdFinding.h"
#include "RuleReport.h"
#include "Rules.h"
#include "StringPositions.h"
#include "StringRows.h"
#include "TextContext.h"
#include "Threads.h"

#include <algorithm>
#include <tuple>

namespace
{

constexpr size_t ROWS_WORTH_A_THREAD = 2000;

/// Checks a range of rows, and sets their hashes.
std::vector<Finding> CheckRange(const CheckInput &input, std::span<StringRow> rows)
{
    std::vector<Finding> findings;
    RuleReport report(input.settings, [&](Finding &&finding) { findings.push_back(std::move(finding)); });
    RowCheck check(input.texts);
    for (StringRow &row : rows) {
        check.Check(*row.head, report);
        row.sourceHash = check.SourceHash();
    }
    return findings;
}

/// Checks all rows, in as many threads as the machine has processors, and sets their hashes.
void CheckRows(const CheckInput &input, std::vector<StringRow> &rows, std::vector<Finding> &findings)
{
    const size_t count = ThreadsFor(rows.size(), ROWS_WORTH_A_THREAD);
    std::vector<std::vector<Finding>> parts(count);
    RunInThreads(count, [&](size_t part) {
        const size_t from = rows.size() * part / count;
        const size_t to = rows.size() * (part + 1) / count;
        parts[part] = CheckRange(input, std::span(rows).subspan(from, to - from));
    });
    for (std::vector<Finding> &part : parts)
        findings.insert(findings.end(), std::make_move_iterator(part.begin()), std::make_move_iterator(part.end()));
}

size_t RuleIndex(const Finding &finding)
{
    const Rule *const rule = FindRule(QString::fromLatin1(finding.code));
    return rule ? IndexOf(*rule) : AllRules().size();
}

} // namespace

void SortFindings(std::vector<Finding> &findings)
{
    std::stable_sort(findings.begin(), findings.end(), [](const Finding &a, const Finding &b) {
        const auto key = [](const Finding &f) { return std::tie(f.file, f.line, f.column); };
        if (key(a) != key(b))
            return key(a) < key(b);
        const size_t ruleA = RuleIndex(a);
        const size_t ruleB = RuleIndex(b);
        return std::tie(ruleA, a.id, a.language, a.text) < std::tie(ruleB, b.id, b.language, b.text);
    });
}

std::vector<Finding> CheckProject(const CheckInput &given)
{
    CheckFacts facts;
    CheckInput input = given;
    input.facts = &facts;
    std::vector<Finding> findings;
    std::vector<StringRow> rows = StringRowsOf(input.document);
    CheckRows(input, rows, findings);
    input.repeatedRows = RowsWithEqualSource(rows);
    RuleReport report(input.settings, [&](Finding &&finding) { findings.push_back(std::move(finding)); });
    for (const Rule &rule : AllRules()) {
        if (rule.files && report.Begin(rule))
            rule.files({facts.Files(input), input.settings, input.countAlpha}, report);
        else if (rule.project && report.Begin(rule))
            rule.project(input, report);
    }
    report.AddFound(input.texts.Faults());
    PlaceInLists(input.document, findings);
    PlaceInStringFile(input.document, findings);
    SortFindings(findings);
    return findings;
}
