// SPDX-License-Identifier: MIT
#pragma once

#include "IDPool.h"

#include <vector>

/// All records of a pool, sorted by the unsigned bytes of their names; records with the same name are in the order of
/// the pool.
[[nodiscard]] std::vector<IDRecord *> SortedIds(const IDPool &pool);

class Environment;

/// Gives the records their values. Has the same results as IDGen::FillValue.
[[nodiscard]] int FillSorted(Environment &env, const std::vector<IDRecord *> &sorted);
