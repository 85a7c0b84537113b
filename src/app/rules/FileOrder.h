// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class CFileRes;
class Environment;

/// The sorted order of a list of files, as the present numbers of its rows. A sort state of 1 is ascending by ID, and
/// -1 is descending. Any other sort state sorts by path, even that of the column of types, and 0 keeps the order. The
/// sort is stable.
[[nodiscard]] std::vector<int> FileOrder(const std::vector<CFileRes *> &rows, const Environment &env, int sortState);
