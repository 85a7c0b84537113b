// SPDX-License-Identifier: MIT
#pragma once

#include "Rule.h"

// The rules that compare files of the project with what a save would write.

void HeaderStale(const CheckInput &input, RuleReport &report);
[[nodiscard]] std::unique_ptr<RuleInParts> BeginListsUnsaved();
