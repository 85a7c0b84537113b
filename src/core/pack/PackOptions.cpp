// SPDX-License-Identifier: MIT
#include "PackOptions.h"

#include "Settings.h"

#include <algorithm>
#include <limits>

PackOptions PackOptionsOf(const Settings &settings, const std::function<void(const QString &)> &tell)
{
    const auto number = [&](const char *key, int fallback, int most) {
        const int value = settings.Int("Pack", key, fallback);
        const int used = std::clamp(value, 1, most);
        if (used != value)
            tell(QStringLiteral("Morvanite.ini: %1=%2 (section Pack) is out of range, from 1 to %3; it counts as %4")
                     .arg(QString::fromLatin1(key))
                     .arg(value)
                     .arg(most)
                     .arg(used));
        return used;
    };
    PackOptions options;
    options.once = settings.Int("Pack", "once", 0) == 1;
    options.jobs = number("jobs", 1, PackOptions::MOST_JOBS);
    options.cache = settings.String("Pack", "cache");
    options.cacheLimit = quint64(number("cache_mib", 1024, std::numeric_limits<int>::max())) << 20;
    options.sorted = settings.Int("Pack", "sorted", 0) == 1;
    return options;
}
