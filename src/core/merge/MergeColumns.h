// SPDX-License-Identifier: MIT
#pragma once

#include "MergeResult.h"
#include "MergeTable.h"

#include <array>

/// The three versions of a string file.
using MergeTables = std::array<MergeTable, MERGE_SIDES>;
/// The places of one ID's rows in the three versions; -1 where it has none.
using MergeRow = std::array<int, MERGE_SIDES>;

/// A language of the merged string file.
struct MergedColumn
{
    std::array<int, MERGE_SIDES> in; ///< its place in the columns of each version; -1 where it is missing
    QStringView ours;                ///< its field of line 2
    QStringView theirs;              ///< the same, unless both sides have changed it in different ways

    /// Returns whether this side has dropped the language, although the other has added texts to it.
    [[nodiscard]] bool IsDroppedBy(MergeSide side) const { return in[BASE] >= 0 && in[side] < 0; }
};

/// Returns the languages of the merged string file. A language that one side has dropped is gone, unless the other side
/// has added or changed a text in it.
[[nodiscard]] std::vector<MergedColumn> MergeColumns(const MergeTables &tables, const std::vector<MergeRow> &rows);
