// SPDX-License-Identifier: MIT
#pragma once

/// Limits the memory and the processor time of this process, so that no picture can exhaust the host. Requests for more
/// memory are then refused.
///
/// When the time has run out, `lastLine` is written to standard error and the process ends with status 1. `lastLine`
/// must live as long as the process. Limits that are already lower stay.
void LimitMemoryAndTime(const char *lastLine);

/// Called when nothing that takes long follows: from now on the process doesn't end at once if the time runs out.
void StopWatchingTime();
