// SPDX-License-Identifier: MIT
#pragma once

#include "Rule.h"

// The rules that need the device's fonts. The table of rules (Rules.cpp) says what each finds.

[[nodiscard]] QString TextTooWide(const TextPair &pair, const TextContext &context);
[[nodiscard]] std::unique_ptr<RuleInParts> BeginGlyphMissing();
