// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <optional>
#include <vector>

/// What the load of a project found wrong or left out, for the people who fix it. The lines of the report don't serve
/// for that: they count rows in other ways and name no file.
class LoadFindings
{
public:
    /// Adds a finding; findings after the first hundred are dropped.
    void Add(const Finding &finding)
    {
        constexpr size_t MOST = 100;
        if (findings.size() < MOST)
            findings.push_back(finding);
    }
    [[nodiscard]] const std::vector<Finding> &All() const { return findings; }
    /// Remembers the first comment. A comment belongs to no resource and the project is complete without it, but a save
    /// that loses the comment keeps the old file.
    void AddComment(const Finding &finding)
    {
        if (!comment)
            comment = finding;
    }
    [[nodiscard]] const std::optional<Finding> &Comment() const { return comment; }
    void Clear()
    {
        findings.clear();
        comment.reset();
    }

private:
    std::vector<Finding> findings;
    std::optional<Finding> comment;
};
