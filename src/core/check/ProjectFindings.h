// SPDX-License-Identifier: MIT
#pragma once

#include "FindingCounts.h"
#include "Text.h"

#include <QHash>

class CResModel;

/// The findings of the rules about a project as a whole, in the order of file and line.
class ProjectFindings
{
public:
    /// Takes findings that are sorted.
    void Set(std::vector<Finding> findings, CResModel &model);
    /// Drops the findings about a resource or a string, whose ID is gone. Returns whether there were any. Must be
    /// called for each such ID.
    bool Drop(const NarrowText &id);
    void Clear();

    [[nodiscard]] std::vector<Finding> All() const;
    /// Returns the findings about an ID that exists. Valid until the next change.
    [[nodiscard]] std::vector<const Finding *> About(const NarrowText &id) const;
    [[nodiscard]] const FindingCounts &Counts() const { return counts; }

private:
    struct Entry
    {
        Finding finding;
        bool isDropped = false;
    };
    std::vector<Entry> entries;
    QHash<NarrowText, std::vector<size_t>> byId; // those about IDs that exist
    FindingCounts counts;
};
