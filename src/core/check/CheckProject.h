// SPDX-License-Identifier: MIT
#pragma once

#include "CheckInput.h"

/// Sorts findings by file, line, column, rule and ID.
void SortFindings(std::vector<Finding> &findings);

/// Runs all rules that aren't off. Returns the findings in the order of file, line, column, rule and ID. Changes
/// nothing, neither the project nor a file.
[[nodiscard]] std::vector<Finding> CheckProject(const CheckInput &given);
