// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// The number of insertions, deletions, replacements and swaps of neighbours that make one word of the other, where no
/// part is changed twice (optimal string alignment). Takes time proportional to the product of both lengths.
[[nodiscard]] size_t TypingErrors(const std::string &a, const std::string &b);

/// Returns the candidate that a mistyped word probably means: the one with the fewest TypingErrors, and of those the
/// first. The case of ASCII letters doesn't count. Empty if all have more than a third of the word's length, or more
/// than 1 if that is larger.
[[nodiscard]] std::string NearestWord(const std::string &word, const std::vector<std::string> &candidates);
