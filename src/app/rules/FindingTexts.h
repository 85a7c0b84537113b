// SPDX-License-Identifier: MIT
#pragma once

#include "FindingList.h"
#include "ProjectCheck.h"

/// How far the check of the project is whose findings are listed.
enum class CheckState
{
    NoProject, ///< no project is open
    Checking,
    Checked,
};

/// The counts of findings, such as "2 errors, 5 warnings, 1 note", without zeros; "no findings" if all are 0.
[[nodiscard]] QString CountsText(const FindingCounts &counts);
/// The count of the most serious findings, such as "2 errors", for little room.
[[nodiscard]] QString ShortCountsText(const FindingCounts &counts);
/// The count of one severity, such as "0 errors".
[[nodiscard]] QString CountText(const FindingCounts &counts, Severity severity);

/// What a list without rows shows in their place.
[[nodiscard]] QString EmptyListText(CheckState state, const FindingList &list);

/// A row of the list for the status bar, such as "1 of 12, error: ID_TEMP, Thai: %s where English has %d". With
/// `isPlaceTold` the file and line follow, if it has them.
[[nodiscard]] QString StepText(const FindingList &list, int row, bool isPlaceTold);
/// The same for a finding about a resource that no longer exists.
[[nodiscard]] QString GoneText(const FindingList &list, int row);

/// What a rule finds and what to do, for the user; empty for a code that isn't that of a rule.
[[nodiscard]] QString RuleText(const Finding &finding);
