// SPDX-License-Identifier: MIT
#include "PackOptions.h"

#include "Settings.h"

#include <algorithm>

PackOptions PackOptionsOf(const Settings &settings)
{
    PackOptions options;
    options.once = settings.Int("Pack", "once", 0) == 1;
    options.jobs = std::clamp(settings.Int("Pack", "jobs", 1), 1, PackOptions::MOST_JOBS);
    options.cache = settings.String("Pack", "cache");
    options.cacheLimit = quint64(std::max(settings.Int("Pack", "cache_mib", 1024), 1)) << 20;
    options.sorted = settings.Int("Pack", "sorted", 0) == 1;
    return options;
}
