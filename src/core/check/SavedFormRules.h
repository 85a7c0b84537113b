// SPDX-License-Identifier: MIT
#pragma once

#include "Rule.h"

// The rules that compare files of the project with what a save would write.

[[nodiscard]] std::unique_ptr<RuleInParts> BeginHeaderStale();
[[nodiscard]] std::unique_ptr<RuleInParts> BeginListsUnsaved();
