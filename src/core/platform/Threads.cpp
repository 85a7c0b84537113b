// SPDX-License-Identifier: MIT
#include "Threads.h"

#include "SignalCleanup.h"

#include <algorithm>
#include <thread>
#include <vector>

size_t ThreadsFor(size_t items, size_t worthAThread, size_t most)
{
    const size_t processors = std::max(1U, std::thread::hardware_concurrency());
    return std::clamp<size_t>(items / worthAThread, 1, std::min(most, processors));
}

void RunInThreads(size_t count, const std::function<void(size_t number)> &work)
{
    std::vector<std::thread> threads;
    {
        const SignalHold hold;
        for (size_t number = 1; number < count; ++number)
            threads.emplace_back(work, number);
    }
    work(0);
    for (std::thread &thread : threads)
        thread.join();
}
