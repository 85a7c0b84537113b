// SPDX-License-Identifier: MIT
// The watch of a project's files during a storm of writes, compared with the writes.

#include "CFileChangeMonitor.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <ctime>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace
{

constexpr int FILES = 1000;

double Seconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

/// The processor time of all threads except this one, in seconds.
double SecondsOfOthers()
{
    return Seconds(CLOCK_PROCESS_CPUTIME_ID) - Seconds(CLOCK_THREAD_CPUTIME_ID);
}

void WriteAll(const std::vector<QByteArray> &paths)
{
    static constexpr char TEXT[4096] = "text";
    for (const QByteArray &path : paths) {
        const int file = open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (write(file, TEXT, sizeof TEXT) != sizeof TEXT)
            std::abort();
        close(file);
    }
}

/// Writes a thousand files in one folder; the argument is the number of watched files. "ratio" is the thread's
/// processor time divided by that of writing them; with the three files of a project at most 0.05 is required.
/// "notice_ms" is from the last write to the notice; at most 250 is required.
void WatchStorm(benchmark::State &state)
{
    const QTemporaryDir folder;
    std::vector<QByteArray> paths;
    for (int n = 0; n < FILES; ++n)
        paths.push_back(folder.filePath(QString::number(n)).toUtf8());
    WriteAll(paths);
    std::atomic<int> notices = 0;
    CFileChangeMonitor monitor([&](const std::vector<quint32> &handles) {
        notices += int(handles.size());
        notices.notify_all();
    });
    const int watched = int(state.range(0));
    for (int n = FILES - watched; n < FILES; ++n)
        monitor.AddFile(QString::fromUtf8(paths[size_t(n)]), nullptr);
    double writing = 0;
    double watching = 0;
    double latest = 0;
    for (auto _ : state) {
        notices = 0;
        const double others = SecondsOfOthers();
        const double own = Seconds(CLOCK_THREAD_CPUTIME_ID);
        WriteAll(paths);
        writing += Seconds(CLOCK_THREAD_CPUTIME_ID) - own;
        const double written = Seconds(CLOCK_MONOTONIC);
        for (int told = 0; told < watched; told = notices)
            notices.wait(told);
        latest = std::max(latest, Seconds(CLOCK_MONOTONIC) - written);
        std::this_thread::sleep_for(std::chrono::milliseconds(50)); // the thread waits again
        watching += SecondsOfOthers() - others;
    }
    state.counters["ratio"] = watching / writing;
    state.counters["writing_ms"] = writing * 1000 / double(state.iterations());
    state.counters["watching_ms"] = watching * 1000 / double(state.iterations());
    state.counters["notice_ms"] = latest * 1000;
}
BENCHMARK(WatchStorm)->Arg(3)->Arg(FILES)->Iterations(20)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
