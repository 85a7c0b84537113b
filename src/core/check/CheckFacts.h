// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"
#include "SourceNames.h"

#include <optional>
#include <vector>

struct CheckInput;

/// What several project rules look at, found when the first of them asks. Main thread only.
class CheckFacts
{
public:
    /// The findings in the project's layout files (CheckLayoutsOf), without those that the load has reported too.
    [[nodiscard]] const std::vector<Finding> &LayoutFindings(const CheckInput &input);
    /// The names in the application's sources.
    [[nodiscard]] const SourceNames &Sources(const CheckInput &input);

private:
    std::optional<std::vector<Finding>> layoutFindings;
    std::optional<SourceNames> sources;
};
