// SPDX-License-Identifier: MIT
#pragma once

#include "Rule.h"

// The text rules. The table of rules (Rules.cpp) says what each finds.

[[nodiscard]] QString TranslationMissing(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString SourceMissing(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString DoubleBlank(const TextPair &pair, const TextContext &context);
