// SPDX-License-Identifier: MIT
#pragma once

#include "Rule.h"

// The rules about IDs and their numbers.

void IdInvalid(const CheckInput &input, RuleReport &report);
void IdCase(const CheckInput &input, RuleReport &report);
[[nodiscard]] std::unique_ptr<RuleInParts> BeginIdUnused();
void IdUndefined(const CheckInput &input, RuleReport &report);
void IdRenumbered(const CheckInput &input, RuleReport &report);
void IdRangeUsedUp(const CheckInput &input, RuleReport &report);
