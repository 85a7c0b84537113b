// SPDX-License-Identifier: MIT
#pragma once

class RuleReport;
struct CheckInput;

// The rules that compare files of the project with what a save would write.

void HeaderStale(const CheckInput &input, RuleReport &report);
void ListsUnsaved(const CheckInput &input, RuleReport &report);
