// SPDX-License-Identifier: MIT
#pragma once

#include "MergeResult.h"

#include <array>

class Environment;

/// Merges three versions of a string file or of a resource list of a project; the content of ours tells which. An empty
/// base is a file that both sides have added. The merged file has the form of ours: its encoding and its line ends.
/// Files that can't be read, have conflict markers already, or have something that the merge would lose are refused.
/// If ours and theirs are texts in one encoding without conflict markers, a refusal comes with both as one conflict.
[[nodiscard]] MergeResult MergeFiles(Environment &env, const std::array<QByteArray, MERGE_SIDES> &files,
                                     OnConflict onConflict = OnConflict::Mark);
