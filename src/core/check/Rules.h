// SPDX-License-Identifier: MIT
#pragma once

#include "Rule.h"

#include <span>

/// Returns all rules, in the order of the documentation.
[[nodiscard]] std::span<const Rule> AllRules();

/// Returns the rule of that ID, or null.
[[nodiscard]] const Rule *FindRule(QStringView id);

/// Returns the word for a level: off, note, warning or error.
[[nodiscard]] QString NameOfLevel(RuleLevel level);

/// Returns the place of a rule in `AllRules`.
[[nodiscard]] size_t IndexOf(const Rule &rule);

/// Returns the text that explains a rule to a user: ID, default level, summary, explanation; with line ends.
[[nodiscard]] QString ExplanationOf(const Rule &rule);
