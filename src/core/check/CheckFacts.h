// SPDX-License-Identifier: MIT
#pragma once

#include "FileSurvey.h"
#include "Finding.h"
#include "SourceNames.h"

#include <optional>
#include <vector>

class IDRecord;
struct CheckInput;

/// Facts about a project that several rules use. Each is found at the first call. Main thread only.
class CheckFacts
{
public:
    /// What is wrong with the opening of the project that the load doesn't report (OpeningCheck::SilentReasons).
    [[nodiscard]] const std::vector<Finding> &SilentReasons(const CheckInput &input);
    /// The findings in the project's layout files (CheckLayoutsOf), without those that the load has reported too.
    [[nodiscard]] const std::vector<Finding> &LayoutFindings(const CheckInput &input);
    /// The files of the project and what is in them.
    [[nodiscard]] const FileSurvey &Files(const CheckInput &input);
    /// The names in the application's sources.
    [[nodiscard]] const SourceNames &Sources(const CheckInput &input);
    /// The records of the project's IDs, sorted by name (SortedIds).
    [[nodiscard]] const std::vector<IDRecord *> &Ids(const CheckInput &input);

private:
    std::optional<std::vector<Finding>> silentReasons;
    std::optional<std::vector<Finding>> layoutFindings;
    std::optional<FileSurvey> files;
    std::optional<SourceNames> sources;
    std::optional<std::vector<IDRecord *>> ids;
};
