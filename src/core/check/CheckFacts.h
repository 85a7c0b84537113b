// SPDX-License-Identifier: MIT
#pragma once

#include "FileSurvey.h"
#include "Finding.h"
#include "SourceNames.h"

#include <memory>
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
    /// Takes a survey that was made before.
    void TakeFiles(std::shared_ptr<const FileSurvey> survey) { files = std::move(survey); }
    /// The names in the application's sources.
    [[nodiscard]] const SourceNames &Sources(const CheckInput &input);
    /// Takes names that were read before.
    void TakeSources(SourceNames names) { sources = std::move(names); }
    /// The records of the project's IDs, sorted by name (SortedIds).
    [[nodiscard]] const std::vector<IDRecord *> &Ids(const CheckInput &input);
    /// Forgets the records, because one of them is gone or has another name.
    void ForgetIds() { ids.reset(); }

private:
    std::optional<std::vector<Finding>> silentReasons;
    std::optional<std::vector<Finding>> layoutFindings;
    std::shared_ptr<const FileSurvey> files;
    std::optional<SourceNames> sources;
    std::optional<std::vector<IDRecord *>> ids;
};
