// SPDX-License-Identifier: MIT
#pragma once

class RuleReport;
struct CheckInput;

// The rules about layouts. The findings of all but the last are those of "layouts --check".

void LayoutClass(const CheckInput &input, RuleReport &report);
void LayoutProperty(const CheckInput &input, RuleReport &report);
void LayoutValue(const CheckInput &input, RuleReport &report);
void LayoutReference(const CheckInput &input, RuleReport &report);
void LayoutName(const CheckInput &input, RuleReport &report);
void LayoutOutside(const CheckInput &input, RuleReport &report);
