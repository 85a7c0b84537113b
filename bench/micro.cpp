// SPDX-License-Identifier: MIT
// The time of internal operations, each compared with a plain form of the same work in the same run.

#include "BenchModel.h"
#include "IDGen.h"
#include "PayloadLayout.h"
#include "SortedIds.h"
#include "StringFileReader.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace
{

std::vector<QByteArray> ShuffledNames(qsizetype count)
{
    std::vector<QByteArray> names;
    for (qsizetype i = 0; i < count; ++i)
        names.push_back("ID_RESOURCE_NUMBER_" + QByteArray::number(100000 + i));
    std::shuffle(names.begin(), names.end(), std::mt19937(7));
    return names;
}

void FillValueOfIds(benchmark::State &state)
{
    BenchWorld world;
    for (const QByteArray &name : ShuffledNames(state.range(0)))
        (void)world.model.ids.Allocate(name, ANY_RESOLUTION);
    for (auto _ : state)
        benchmark::DoNotOptimize(IDGen::FillValue(world.env, &world.model.ids));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(FillValueOfIds)->Arg(1000)->Arg(99999)->Unit(benchmark::kMillisecond);

/// For comparison: the standard sort of the names alone.
void SortOfNames(benchmark::State &state)
{
    const std::vector<QByteArray> names = ShuffledNames(state.range(0));
    for (auto _ : state) {
        std::vector<QByteArray> sorted = names;
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SortOfNames)->Arg(1000)->Arg(99999)->Unit(benchmark::kMillisecond);

QByteArray StringFileOf(qsizetype rows, int languages)
{
    QString text = QChar(0xFEFF) +
                   QStringLiteral("Number of Language\t%1\r\nString ID\tResource Type\tDescription").arg(languages);
    for (int n = 0; n < languages; ++n)
        text += QStringLiteral("\tLanguage%1(%1)").arg(n);
    text += QStringLiteral("\r\n");
    for (qsizetype row = 0; row < rows; ++row) {
        text += QStringLiteral("ID_STRING_%1\tNormal\tnote").arg(row, 6, 10, QLatin1Char('0'));
        for (int n = 0; n < languages; ++n)
            text += QStringLiteral("\tThe weather will be sunny in place %1").arg(row);
        text += QStringLiteral("\r\n");
    }
    text += QStringLiteral("##number\t%1\r\n").arg(rows);
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

void ReadStrings(benchmark::State &state)
{
    const QByteArray file = StringFileOf(state.range(0), 12);
    for (auto _ : state) {
        StringsWorld world;
        qsizetype at = 0;
        StringFileReader reader(world.model, [&](void *buffer, size_t size) {
            const qsizetype piece = std::min(qsizetype(size), file.size() - at);
            std::memcpy(buffer, file.constData() + at, size_t(piece));
            at += piece;
            return ssize_t(piece);
        });
        benchmark::DoNotOptimize(reader.Read(file.size()));
        state.PauseTiming(); // destroying the world isn't part of reading
        world.model.root.Clear();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * file.size());
}
BENCHMARK(ReadStrings)->Arg(1000)->Arg(50000)->Unit(benchmark::kMillisecond);

/// For comparison: copying the same bytes once.
void CopyOfStringFile(benchmark::State &state)
{
    const QByteArray file = StringFileOf(state.range(0), 12);
    QByteArray copy(file.size(), Qt::Uninitialized);
    for (auto _ : state) {
        std::memcpy(copy.data(), file.constData(), size_t(file.size()));
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetBytesProcessed(state.iterations() * file.size());
}
BENCHMARK(CopyOfStringFile)->Arg(1000)->Arg(50000)->Unit(benchmark::kMillisecond);

void LayOutItems(benchmark::State &state)
{
    std::vector<PackEntry> entries{PackEntry{"AppLogo.img"}, PackEntry{"zep-2.0"}, PackEntry{}};
    entries[1].isBlock = true;
    std::vector<BlockItem> items(size_t(state.range(0)));
    for (BlockItem &item : items)
        item.size = 2048;
    for (auto _ : state)
        benchmark::DoNotOptimize(LayOutPayload(entries, items, 0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LayOutItems)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
