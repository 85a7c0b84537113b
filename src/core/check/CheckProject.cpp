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

void RunParts(const Rule &rule, const CheckInput &input, RuleReport &report)
{
    const std::unique_ptr<RuleInParts> parts = rule.parts();
    while (parts->Step(input, report)) {
    }
}

size_t RuleIndex(const char *code)
{
    const Rule *const rule = FindRule(QString::fromLatin1(code));
    return rule ? IndexOf(*rule) : AllRules().size();
}

/// A finding to be sorted, and the place of its rule.
struct Sorted
{
    size_t rule;
    size_t place; // of the finding
};

} // namespace

void SortFindings(std::vector<Finding> &findings)
{
    // Sorts places, because findings are large.
    std::vector<Sorted> order;
    order.reserve(findings.size());
    const char *code = nullptr;
    size_t rule = 0;
    for (size_t place = 0; place < findings.size(); ++place) {
        if (findings[place].code != code) { // the findings of a rule follow one another
            code = findings[place].code;
            rule = RuleIndex(code);
        }
        order.push_back({rule, place});
    }
    std::sort(order.begin(), order.end(), [&findings](const Sorted &a, const Sorted &b) {
        const auto key = [&findings](const Sorted &s) {
            const Finding &f = findings[s.place];
            return std::tie(f.file, f.line, f.column, s.rule, f.id, f.language, f.text, s.place);
        };
        return key(a) < key(b);
    });
    std::vector<Finding> sorted;
    sorted.reserve(findings.size());
    for (const Sorted &each : order)
        sorted.push_back(std::move(findings[each.place]));
    findings = std::move(sorted);
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
        else if (rule.parts && report.Begin(rule))
            RunParts(rule, input, report);
    }
    report.AddFound(input.texts.Faults());
    PlaceInLists(input.document, findings);
    PlaceInStringFile(input.document, findings);
    SortFindings(findings);
    return findings;
}
