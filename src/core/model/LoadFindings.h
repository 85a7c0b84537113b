#pragma once

#include "Finding.h"

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
    void Clear() { findings.clear(); }

private:
    std::vector<Finding> findings;
};
