// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class Settings;

/// How a pack works. All but `sorted` change only how long it takes: the files that it makes are the same.
struct PackOptions
{
    bool once = false; ///< make the side file from the bytes of the section where they are the same by definition
    static constexpr int MOST_JOBS = 64;
    int jobs = 1;  ///< image converters that run at a time, 1 to MOST_JOBS
    QString cache; ///< a folder for converted pictures; empty: none. A relative path is relative to the project
    quint64 cacheLimit = quint64(1) << 30; ///< the most bytes that the files in `cache` have
    bool sorted = false;                   ///< the tables of the payload are in ascending order of their keys
};

/// The keys of the section "Pack" of the settings. A number out of its range becomes the nearest one in it, and `tell`
/// gets a message about it.
[[nodiscard]] PackOptions PackOptionsOf(const Settings &settings, const std::function<void(const QString &)> &tell);
