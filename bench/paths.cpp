// SPDX-License-Identifier: MIT
// Looking up paths of many folders.

#include "HostFiles.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <cstdlib>

namespace
{

constexpr int FOLDERS = 1100;
constexpr int FILES = 90;

/// "ratio" is the time for looking up 99,000 files that name 1,100 folders in turn, divided by the time for the same
/// files grouped by folder; at most 2 is wanted.
void PathsOfManyFolders(benchmark::State &state)
{
    const QTemporaryDir top;
    const auto path = [&top](int folder, int file) {
        return QStringLiteral("%1/%2/%3.bin").arg(top.path()).arg(folder).arg(file);
    };
    for (int folder = 0; folder < FOLDERS; ++folder) {
        if (!QDir(top.path()).mkdir(QString::number(folder)))
            std::abort();
        for (int file = 0; file < FILES; ++file) {
            if (!QFile(path(folder, file)).open(QIODevice::WriteOnly))
                std::abort();
        }
    }
    const auto time = [&](bool isGrouped) {
        HostPaths paths;
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < FOLDERS * FILES; ++i) {
            if (!paths.Exists(isGrouped ? path(i / FILES, i % FILES) : path(i % FOLDERS, i / FOLDERS)))
                std::abort();
        }
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    (void)time(true); // fills the system's cache
    double grouped = 0;
    double inTurn = 0;
    for (auto _ : state) {
        grouped += time(true);
        inTurn += time(false);
    }
    state.counters["ratio"] = inTurn / grouped;
}
BENCHMARK(PathsOfManyFolders)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
