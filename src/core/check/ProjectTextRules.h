// SPDX-License-Identifier: MIT
#pragma once

class RuleReport;
struct CheckInput;

// The rules about texts that compare several rows, or look at the languages. The table of rules (Rules.cpp) says what
// each finds.

void DuplicateText(const CheckInput &input, RuleReport &report);
void InconsistentTranslation(const CheckInput &input, RuleReport &report);
void LanguageUnknown(const CheckInput &input, RuleReport &report);
