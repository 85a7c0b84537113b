#pragma once

/// Bounds what this process may take, so that no picture can exhaust the host: memory, which is then refused to whoever
/// asks for it, and processor time.
///
/// When the time is over, `lastLine` is written to standard error and the process ends with status 1. `lastLine` must
/// live as long as the process. Limits that are lower already stay.
void LimitMemoryAndTime(const char *lastLine);

/// From here on the time may run out without the process ending at once: nothing that takes long follows.
void StopWatchingTime();
