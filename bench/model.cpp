// SPDX-License-Identifier: MIT
// A large tree of resources: default IDs, and emptying folders.

#include "BenchModel.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace
{

double Seconds(std::chrono::steady_clock::time_point from)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

/// The time in seconds for the default IDs of `count` files.
double TimeOfIds(qsizetype count, const std::function<QString(qsizetype)> &title)
{
    BenchWorld world;
    std::vector<QString> paths;
    for (qsizetype i = 0; i < count; ++i)
        paths.push_back(title(i) + QStringLiteral(".png"));
    std::vector<std::unique_ptr<CFileRes>> made;
    made.reserve(size_t(count));
    const CResFolder folder(KIND_RESO_IMAGES, 0);
    const auto start = std::chrono::steady_clock::now();
    for (const QString &path : paths)
        made.push_back(world.model.CreateDefaultFileRes(folder, path));
    return Seconds(start);
}

/// "more_us" is the additional time for a file with a title that is taken, compared with one with a title of its own,
/// in microseconds; at most 2 is wanted. Titles are equal, without a letter of the alphabet, or long, in pairs, with
/// the same beginning.
void DefaultIdsOfTakenTitles(benchmark::State &state)
{
    const qsizetype count = state.range(0);
    const auto own = [](qsizetype i) { return QStringLiteral("title%1").arg(i); };
    const auto equal = [](qsizetype) { return QStringLiteral("title"); };
    const auto foreign = [](qsizetype) { return QStringLiteral("日本語"); };
    const auto pairs = [](qsizetype i) { return QString(48, u'x') + QStringLiteral("%1").arg(i / 2, 6); };
    double plain = 0;
    double ours[3] = {};
    for (auto _ : state) {
        plain += TimeOfIds(count, own);
        ours[0] += TimeOfIds(count, equal);
        ours[1] += TimeOfIds(count, foreign);
        ours[2] += TimeOfIds(count, pairs);
    }
    const double perFile = 1e6 / double(count) / double(state.iterations());
    const char *const names[] = {"more_us_equal", "more_us_foreign", "more_us_pairs"};
    for (size_t i = 0; i < 3; ++i)
        state.counters[names[i]] = (ours[i] - plain) * perFile;
    state.counters["own_us"] = plain * perFile;
}
BENCHMARK(DefaultIdsOfTakenTitles)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(3);

/// The time for one of them must not grow with their number.
void ClearOfSubfolders(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        BenchWorld world;
        for (qint64 i = 0; i < state.range(0); ++i)
            world.model.root.AddFolder(world.model.CreateFolder(KIND_LANGUAGE, qint32(i)));
        state.ResumeTiming();
        world.model.ClearFolder(world.model.root);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ClearOfSubfolders)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
