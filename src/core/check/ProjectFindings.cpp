// SPDX-License-Identifier: MIT
#include "ProjectFindings.h"

#include "Environment.h"
#include "ResModel.h"

void ProjectFindings::Set(std::vector<Finding> findings, CResModel &model)
{
    Clear();
    entries.reserve(findings.size());
    counts.Add(findings);
    for (Finding &finding : findings) {
        // The ID of a finding such as "id-undefined" doesn't exist.
        const NarrowText id = model.env.WideToNarrow(finding.id);
        if (!id.isEmpty() && model.ids.FindName(id))
            byId[id].push_back(entries.size());
        entries.push_back({std::move(finding)});
    }
}

bool ProjectFindings::Drop(const NarrowText &id)
{
    const std::vector<size_t> dropped = byId.take(id);
    for (const size_t place : dropped) {
        entries[place].isDropped = true;
        counts.Add(entries[place].finding.severity, -1);
    }
    return !dropped.empty();
}

void ProjectFindings::Clear()
{
    *this = {}; // frees the memory
}

std::vector<Finding> ProjectFindings::All() const
{
    std::vector<Finding> all;
    for (const Entry &entry : entries) {
        if (!entry.isDropped)
            all.push_back(entry.finding);
    }
    return all;
}

std::vector<const Finding *> ProjectFindings::About(const NarrowText &id) const
{
    std::vector<const Finding *> found;
    if (const auto places = byId.constFind(id); places != byId.constEnd()) {
        for (const size_t place : *places)
            found.push_back(&entries[place].finding);
    }
    return found;
}
