// SPDX-License-Identifier: MIT
#include "Limits.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <sys/resource.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define MORVANITE_HAS_SHADOW_MEMORY 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MORVANITE_HAS_SHADOW_MEMORY 1
#endif
#endif

namespace
{

/// The memory for the largest picture. The usual shapes take 1.2 GiB: 512 MiB for the file, 512 MB for the coefficients
/// of a progressive jpg with four components (2 bytes each), 128 MB for its result. One row of 64 million pixels of 8
/// bytes takes 1.5 GiB beside the file, since libpng keeps two of them.
[[maybe_unused]] constexpr rlim_t maxMemory = rlim_t{2} << 30;

/// The largest pictures take some seconds.
constexpr rlim_t maxSeconds = 60;

const char *g_lastLine = ""; // for the signal handler only

void OnTimeIsOver(int)
{
    // The process ends whether or not the line could be written.
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, g_lastLine, std::strlen(g_lastLine));
    _exit(1);
}

void Lower(__rlimit_resource resource, rlim_t soft, rlim_t hard)
{
    rlimit limit;
    if (getrlimit(resource, &limit) != 0)
        return;
    limit.rlim_max = std::min(limit.rlim_max, hard);
    limit.rlim_cur = std::min({limit.rlim_cur, limit.rlim_max, soft});
    // If both were already equal, the process would be killed before it could say why.
    if (resource == RLIMIT_CPU && limit.rlim_cur == limit.rlim_max && limit.rlim_cur > 1)
        --limit.rlim_cur;
    setrlimit(resource, &limit);
}

} // namespace

void LimitMemoryAndTime(const char *lastLine)
{
    g_lastLine = lastLine;
    std::signal(SIGXCPU, OnTimeIsOver);
    std::signal(SIGXFSZ, SIG_IGN); // a limit on file sizes is then an error of write
    std::signal(SIGPIPE, SIG_IGN); // and so is a closed standard error
#ifndef MORVANITE_HAS_SHADOW_MEMORY
    Lower(RLIMIT_AS, maxMemory, maxMemory);
#endif
    Lower(RLIMIT_CPU, maxSeconds, maxSeconds + 10);
}

void StopWatchingTime()
{
    std::signal(SIGXCPU, SIG_IGN);
}
