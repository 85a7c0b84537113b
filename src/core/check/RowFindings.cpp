// SPDX-License-Identifier: MIT
#include "RowFindings.h"

bool RowFindings::Set(const CStringRes &head, std::vector<Finding> &&findings)
{
    const auto known = byRow.find(&head);
    if (known == byRow.end() && findings.empty())
        return false;
    counts.Add(findings);
    if (known != byRow.end())
        counts.Add(*known, -1);
    if (findings.empty())
        byRow.erase(known);
    else
        byRow[&head] = std::move(findings);
    return true;
}

const std::vector<Finding> *RowFindings::Of(const CStringRes &head) const
{
    const auto found = byRow.constFind(&head);
    return found == byRow.constEnd() ? nullptr : &*found;
}

void RowFindings::Clear()
{
    byRow = {}; // frees the memory
    counts = {};
}
