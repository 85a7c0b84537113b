// SPDX-License-Identifier: MIT
#include "CheckRun.h"

#include "CResDoc.h"
#include "CheckProject.h"
#include "IdFinding.h"
#include "Rules.h"
#include "StringRows.h"

CheckRun::CheckRun(CResDoc &openDocument, const CheckBasis &checkBasis, CountAlpha countOfAlpha,
                   std::function<void()> filesRead)
    : document(openDocument), basis(checkBasis), told(std::move(filesRead)),
      input{openDocument, *basis.settings, basis.texts, openDocument.findings.All(), basis.settings->target,
            {},           countOfAlpha,    &facts},
      report(*basis.settings, [this](Finding &&finding) { findings.push_back(std::move(finding)); })
{
}

bool CheckRun::Step()
{
    if (isComplete)
        return false;
    if (!fileCheck) {
        fileCheck.emplace(input, basis.settings, told);
        return true;
    }
    if (!hasFiles) {
        if (!fileCheck->HasEnded())
            return false;
        TakeFiles();
    }
    const std::span<const Rule> rules = AllRules();
    if (departures != document.ids.Departures())
        Renew(); // in the same step as a rule, so that edits between the steps can't delay it for ever
    if (parts) {
        if (!parts->Step(input, report))
            parts.reset();
        return true;
    }
    while (nextRule < rules.size()) {
        const Rule &rule = rules[nextRule++];
        if ((!rule.project && !rule.parts) || !report.Begin(rule))
            continue;
        if (rule.parts) {
            parts = rule.parts();
            return true;
        }
        rule.project(input, report);
        return true;
    }
    return Complete();
}

void CheckRun::WaitForFiles()
{
    if (fileCheck)
        fileCheck->Wait();
}

void CheckRun::TakeFiles()
{
    hasFiles = true;
    findings = std::move(fileCheck->findings);
    facts.TakeFiles(fileCheck->files);
    if (fileCheck->sources)
        facts.TakeSources(std::move(*fileCheck->sources));
}

/// Finds the facts that point to IDs or rows again, because some of them may be gone since the last part.
void CheckRun::Renew()
{
    departures = document.ids.Departures();
    facts.ForgetIds();
    input.repeatedRows = RowsWithEqualSource(document, basis.texts);
}

/// Ends the run in two steps. Returns false after the second.
bool CheckRun::Complete()
{
    if (!arePlaced) {
        arePlaced = true;
        report.AddFound(basis.faults);
        PlaceInLists(document, findings);
        return true;
    }
    SortFindings(findings);
    isComplete = true;
    return false;
}
