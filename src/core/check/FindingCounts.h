// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

#include <vector>

/// The number of findings of each severity.
struct FindingCounts
{
    int errors = 0;
    int warnings = 0;
    int notes = 0;
    bool operator==(const FindingCounts &) const = default;

    /// Counts a finding, or takes it back if `by` is -1.
    void Add(Severity severity, int by = 1)
    {
        (severity == Severity::Error ? errors : severity == Severity::Warning ? warnings : notes) += by;
    }
    void Add(const std::vector<Finding> &findings, int by = 1)
    {
        for (const Finding &finding : findings)
            Add(finding.severity, by);
    }
    FindingCounts operator+(const FindingCounts &other) const
    {
        return {errors + other.errors, warnings + other.warnings, notes + other.notes};
    }
};
