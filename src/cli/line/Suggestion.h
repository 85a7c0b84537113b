// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// Returns the candidate that a mistyped word probably means; empty if none is near enough. Near enough is a distance
/// of at most a third of the word's length, and at least 1. Of equally near candidates the first is returned.
///
/// The distance is the number of insertions, deletions, replacements and swaps of neighbours that make one word of the
/// other, where no part is changed twice (optimal string alignment).
[[nodiscard]] std::string NearestWord(const std::string &word, const std::vector<std::string> &candidates);
