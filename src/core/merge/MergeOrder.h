// SPDX-License-Identifier: MIT
#pragma once

#include "MergeResult.h"

#include <array>
#include <vector>

/// The orders of three versions of a list. Each item of the lists has a number from 0; a list has each number at most
/// once.
using MergeLists = std::array<std::vector<int>, MERGE_SIDES>;

/// Returns those numbers for which `isKept` is true, in the order of the merged list. That is the order of ours, or of
/// theirs if only theirs has moved items of the base. An item that this list lacks is placed after the item before it
/// in the other list. Where both sides have added items in the same place, those of ours come first.
[[nodiscard]] std::vector<int> MergeOrder(const MergeLists &lists, const std::vector<bool> &isKept);
