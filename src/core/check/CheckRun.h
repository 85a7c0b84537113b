// SPDX-License-Identifier: MIT
#pragma once

#include "CheckBasis.h"
#include "CheckFacts.h"
#include "CheckInput.h"
#include "FileCheck.h"
#include "RuleReport.h"

/// Checks an open document with the rules about the project as a whole, one part at a time. The document may be edited
/// between the parts, unless the tree is replaced (ITreeListener). Main thread only.
class CheckRun
{
public:
    /// All arguments must outlive this object. `countOfAlpha` may be null (CheckInput::countAlpha). `filesRead` is
    /// called by the event loop when `Step` can go on after it has waited for files.
    CheckRun(CResDoc &document, const CheckBasis &checkBasis, CountAlpha countOfAlpha, std::function<void()> filesRead);

    /// Runs the next part. Returns false if there is nothing to do now: it waits for the thread that reads files, or
    /// is complete.
    bool Step();
    [[nodiscard]] bool IsComplete() const { return isComplete; }
    /// Waits for the thread that reads files.
    void WaitForFiles();
    /// The findings, sorted, once the run is complete.
    [[nodiscard]] std::vector<Finding> &Findings() { return findings; }

private:
    void TakeFiles();
    void Renew();
    bool Complete();

    CResDoc &document;
    const CheckBasis &basis;
    std::function<void()> told;
    std::optional<FileCheck> fileCheck; // made by the first step
    CheckFacts facts;
    CheckInput input;
    std::vector<Finding> findings;
    RuleReport report;
    bool hasFiles = false; // of the thread
    size_t nextRule = 0;
    std::unique_ptr<RuleInParts> parts; // of the rule before `nextRule`, if it isn't at its end
    bool arePlaced = false;             // the findings
    bool isComplete = false;
    std::optional<quint64> departures; // of IDs, when the facts about IDs and rows were found
};
