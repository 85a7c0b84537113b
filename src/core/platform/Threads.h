// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

/// Returns how many threads are worth their start for a number of items, at least 1 and at most one for each processor.
/// `worthAThread` is the number of items from which on one more is of use.
[[nodiscard]] size_t ThreadsFor(size_t items, size_t worthAThread, size_t most = SIZE_MAX);

/// Calls `work(0)` to `work(count - 1)`, each in a thread of its own, the first of them in the calling one. Returns
/// when all are done. `work` must not throw.
void RunInThreads(size_t count, const std::function<void(size_t number)> &work);
