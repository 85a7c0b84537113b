#pragma once

#include "Text.h"

#include <vector>

/// Something that a load found wrong, or left out, with its place.
struct LoadFinding
{
    QString file; ///< absolute
    int line = 0; ///< from 1; 0 for the whole file
    QString text; ///< a sentence without its end
};

/// What the load of a project found wrong. The lines of the report count their rows in other ways and name no file;
/// this is for people who are to put it right.
class LoadFindings
{
public:
    /// Keeps the first hundred.
    void Add(const QString &file, int line, const QString &text)
    {
        constexpr size_t MOST = 100;
        if (findings.size() < MOST)
            findings.push_back({file, line, text});
    }
    [[nodiscard]] const std::vector<LoadFinding> &All() const { return findings; }
    void Clear() { findings.clear(); }

private:
    std::vector<LoadFinding> findings;
};
