// SPDX-License-Identifier: MIT
#pragma once

class RuleReport;
struct CheckInput;

// The rules about IDs and their numbers.

void IdInvalid(const CheckInput &input, RuleReport &report);
void IdCase(const CheckInput &input, RuleReport &report);
void IdUnused(const CheckInput &input, RuleReport &report);
void IdUndefined(const CheckInput &input, RuleReport &report);
void IdRenumbered(const CheckInput &input, RuleReport &report);
void IdRangeUsedUp(const CheckInput &input, RuleReport &report);
