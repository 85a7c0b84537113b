#pragma once

#include "Finding.h"

#include <optional>
#include <vector>

/// What the load of a project found wrong or left out, for people who are to put it right: the lines of the report
/// count their rows in other ways and name no file.
class LoadFindings
{
public:
    /// Keeps the first hundred.
    void Add(const Finding &finding)
    {
        constexpr size_t MOST = 100;
        if (findings.size() < MOST)
            findings.push_back(finding);
    }
    [[nodiscard]] const std::vector<Finding> &All() const { return findings; }
    /// Remembers the first comment, which belongs to no resource: the project is whole without it, but the save that
    /// loses it keeps the file.
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
