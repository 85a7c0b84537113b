// SPDX-License-Identifier: MIT
#include "ProjectCheck.h"

#include "CResDoc.h"
#include "CheckFacts.h"
#include "CheckInput.h"
#include "IdFinding.h"
#include "Paths.h"
#include "RuleReport.h"
#include "Rules.h"
#include "StringRows.h"
#include "TextContext.h"

#include <algorithm>

namespace
{

void Count(FindingCounts &counts, const std::vector<Finding> &findings)
{
    for (const Finding &finding : findings) {
        switch (finding.severity) {
        case Severity::Error:
            ++counts.errors;
            break;
        case Severity::Warning:
            ++counts.warnings;
            break;
        case Severity::Note:
            ++counts.notes;
            break;
        }
    }
}

} // namespace

ProjectCheck::ProjectCheck(CResDoc &projectDocument, CountAlpha countOfAlpha)
    : ITreeListener(projectDocument), document(projectDocument), countAlpha(countOfAlpha)
{
}

void ProjectCheck::Start()
{
    if (isOn)
        return;
    isOn = true;
    CheckAgain();
}

void ProjectCheck::Stop()
{
    isOn = isDue = false;
    ofRows.clear();
    ofProject.clear();
    counts = {};
    changed.Tell();
}

void ProjectCheck::CheckAgain()
{
    isDue = isOn;
    if (isDue)
        due.Tell();
}

bool ProjectCheck::Step()
{
    if (!IsRunning())
        return false;
    isDue = false;
    std::vector<Finding> found;
    const CheckSettings settings = ReadCheckSettings(DirectoryOf(document.PathName()), found);
    const TextContext texts(document, settings);
    ofRows.clear();
    ofProject.clear();
    RowCheck rowCheck(texts);
    std::vector<StringRow> rows = StringRowsOf(document);
    for (StringRow &row : rows) {
        std::vector<Finding> ofRow;
        RuleReport report(settings, [&](Finding &&finding) { ofRow.push_back(std::move(finding)); });
        rowCheck.Check(*row.head, report);
        row.sourceHash = rowCheck.SourceHash();
        if (!ofRow.empty())
            ofRows.insert(row.head, std::move(ofRow));
    }
    CheckFacts facts;
    CheckInput input{document, settings, texts, document.findings.All(), settings.target, {}, countAlpha, &facts};
    input.repeatedRows = RowsWithEqualSource(rows);
    RuleReport report(settings, [&](Finding &&finding) { ofProject.push_back(std::move(finding)); });
    for (const Rule &rule : AllRules()) {
        if (rule.project && report.Begin(rule))
            rule.project(input, report);
    }
    PlaceInLists(document, ofProject);
    counts = {};
    for (const std::vector<Finding> &ofRow : ofRows)
        Count(counts, ofRow);
    Count(counts, ofProject);
    changed.Tell();
    return false;
}

void ProjectCheck::RowChanged(const CStringRes &)
{
    CheckAgain();
}

void ProjectCheck::RowGoes(const CStringRes &head)
{
    ofRows.remove(&head);
    CheckAgain();
}

const std::vector<Finding> *ProjectCheck::OfRow(const CStringRes &head) const
{
    const auto found = ofRows.constFind(&head);
    return found == ofRows.constEnd() ? nullptr : &*found;
}

std::vector<Finding> ProjectCheck::All() const
{
    std::vector<Finding> all;
    for (const StringRow &row : StringRowsOf(document)) {
        if (const auto *const ofRow = OfRow(*row.head))
            all.insert(all.end(), ofRow->begin(), ofRow->end());
    }
    all.insert(all.end(), ofProject.begin(), ofProject.end());
    return all;
}

void ProjectCheck::TreeGoes(const CResFolder &)
{
    ofRows.clear();
    CheckAgain();
}
