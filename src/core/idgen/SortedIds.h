#pragma once

#include "IDPool.h"

#include <vector>

/// All records of a pool by the unsigned bytes of their names; records of one name in the order of the pool.
[[nodiscard]] std::vector<IDRecord *> SortedIds(const IDPool &pool);

class Environment;

/// Gives the records their values; the results of IDGen::FillValue.
[[nodiscard]] int FillSorted(Environment &env, const std::vector<IDRecord *> &sorted);
