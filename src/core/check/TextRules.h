// SPDX-License-Identifier: MIT
#pragma once

#include "Rule.h"

// The text rules. The table of rules (Rules.cpp) says what each finds.

[[nodiscard]] QString TranslationMissing(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString SourceMissing(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString PlaceholderMismatch(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString EscapeMismatch(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString TextTooLong(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString ControlCharacter(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString LoneSurrogate(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString BlankEdge(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString BlankOnly(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString EndPunctuation(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString SameAsSource(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString DoubleBlank(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString NotNormalised(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString NumberMismatch(const TextPair &pair, const TextContext &context);
[[nodiscard]] QString CaseStart(const TextPair &pair, const TextContext &context);

/// Returns the text of a finding such as "{} occurs 1 time here and 2 times in English": `what` occurs `here` times in
/// the text of the pair, and `inSource` times in its source text.
[[nodiscard]] QString OccursDifferently(QStringView what, int here, int inSource, const TextPair &pair);
