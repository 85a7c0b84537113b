// SPDX-License-Identifier: MIT
#pragma once

#include "FindingCounts.h"

#include <QHash>

class CStringRes;

/// The findings of the text rules, by the rows of the string table. Needs memory only for rows with findings.
class RowFindings
{
public:
    /// Replaces the findings of a row, given its record in the Description folder. Returns whether there were or are
    /// any.
    bool Set(const CStringRes &head, std::vector<Finding> &&findings);
    /// Returns the findings of a row; null if there are none. Valid until the next change.
    [[nodiscard]] const std::vector<Finding> *Of(const CStringRes &head) const;
    void Clear();
    [[nodiscard]] bool AreEmpty() const { return byRow.isEmpty(); }
    [[nodiscard]] const FindingCounts &Counts() const { return counts; }

private:
    QHash<const CStringRes *, std::vector<Finding>> byRow;
    FindingCounts counts;
};
