// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

/// The waiting times of the watch of folders.
struct WatchTimes
{
    std::chrono::milliseconds quiet{100};    ///< from the last event to the notice
    std::chrono::milliseconds longest{3000}; ///< from the first event to the notice, however many follow
    std::chrono::milliseconds back{1000};    ///< between two checks for a folder that is gone
    std::chrono::milliseconds poll{2000};    ///< between two notices of a folder without events
};
