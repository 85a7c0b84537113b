// The string table: opening it beside the bare lines of its file, and one edit, whatever the table's size.

#include "BenchModel.h"
#include "StringCommands.h"
#include "StringFileReader.h"
#include "StringOrder.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <numeric>

namespace
{

constexpr int LANGUAGES = 12;

struct NoGrid : IStringGrid
{
    void ReportCellError(int, int, int) override {}
    void ShowMessage(int) override {}
};

QByteArray FileOf(qint64 rows)
{
    QString text =
        QStringLiteral("\uFEFFNumber of Language\t%1\r\nString ID\tResource Type\tDescription").arg(LANGUAGES);
    for (int n = 0; n < LANGUAGES; ++n)
        text += QStringLiteral("\tLanguage%1(%1)").arg(n);
    for (qint64 row = 0; row < rows; ++row) {
        text += QStringLiteral("\r\nID_STRING_%1\tNormal\tnote").arg(row + 1, 4, 16, QLatin1Char('0')).toUpper();
        for (int n = 0; n < LANGUAGES; ++n)
            text += QStringLiteral("\tThe weather will be sunny in place %1").arg(row);
    }
    text.replace(QStringLiteral("NORMAL\tNOTE"), QStringLiteral("Normal\tnote"));
    text += QStringLiteral("\r\n##number\t%1\r\n").arg(rows);
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

Utf16Lines::Source SourceOf(const QByteArray &file, qsizetype &at)
{
    return [&file, &at](void *buffer, size_t size) {
        const qsizetype piece = std::min(qsizetype(size), file.size() - at);
        std::memcpy(buffer, file.constData() + at, size_t(piece));
        at += piece;
        return ssize_t(piece);
    };
}

struct World : StringsWorld
{
    explicit World(const QByteArray &file)
    {
        qsizetype at = 0;
        StringFileReader reader(model, SourceOf(file, at));
        if (reader.Read(file.size()) != 0)
            std::abort();
        table.Rebuild();
    }
    NoGrid grid;
    StringTable table{model, grid};
};

double Seconds(std::chrono::steady_clock::time_point from)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

/// "ratio" is the time beside that of the file's lines as texts alone; at most 3 is wanted.
void OpenTable(benchmark::State &state)
{
    const QByteArray file = FileOf(state.range(0));
    double ours = 0;
    double lines = 0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        auto world = std::make_unique<World>(file);
        ours += Seconds(start);
        state.PauseTiming();
        start = std::chrono::steady_clock::now();
        {
            qsizetype at = 0;
            Utf16Lines reader(SourceOf(file, at));
            QStringList texts;
            for (QStringView line; reader.Next(line);)
                texts.append(line.toString());
            benchmark::DoNotOptimize(texts.size());
            lines += Seconds(start);
        }
        world.reset();
        state.ResumeTiming();
    }
    state.counters["ratio"] = ours / lines;
}
BENCHMARK(OpenTable)->Arg(50000)->Unit(benchmark::kMillisecond);

/// One command, taken back and done again: 3 steps, each at most 20 microseconds.
template <typename Make> void Steps(benchmark::State &state, Make make)
{
    World world(FileOf(state.range(0)));
    for (auto _ : state) {
        world.table.history.Run(make(world.table));
        world.table.history.Undo();
        world.table.history.Redo();
        state.PauseTiming();
        world.table.history.Undo(); // the table keeps its size
        state.ResumeTiming();
    }
}

void EditCell(benchmark::State &state)
{
    Steps(state, [](StringTable &table) {
        return std::make_unique<STR_MOD_CMD>(table, table.RowCount() / 2, 5, QStringLiteral("another text"));
    });
}
void RenameRow(benchmark::State &state)
{
    Steps(state, [](StringTable &table) {
        return std::make_unique<STR_MOD_CMD>(table, table.RowCount() / 2, 0, QStringLiteral("ID_OTHER"));
    });
}
void InsertRow(benchmark::State &state)
{
    Steps(state, [](StringTable &table) {
        return std::make_unique<STR_IST_CMD>(table, table.RowCount(), 5, QStringLiteral("a new text"));
    });
}
void DeleteRow(benchmark::State &state)
{
    Steps(state, [](StringTable &table) {
        return std::make_unique<STR_DEL_CMD>(table, std::vector<int>{table.RowCount() / 2});
    });
}
BENCHMARK(EditCell)->Arg(500)->Arg(50000)->Unit(benchmark::kMicrosecond);
BENCHMARK(RenameRow)->Arg(500)->Arg(50000)->Unit(benchmark::kMicrosecond);
BENCHMARK(InsertRow)->Arg(500)->Arg(50000)->Unit(benchmark::kMicrosecond);
BENCHMARK(DeleteRow)->Arg(500)->Arg(50000)->Unit(benchmark::kMicrosecond);

/// A row by its ID where it isn't at the number given, as after a sort; at most 5 microseconds.
void FindMovedRow(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    const int count = world.table.RowCount();
    std::vector<NarrowText> names;
    for (int row = 0; row < count; ++row)
        names.push_back(world.table.Head(row)->Id()->name);
    size_t next = 0;
    for (auto _ : state) {
        next = (next + 7919) % names.size();
        benchmark::DoNotOptimize(world.table.RowOf(names[next], count - 1 - int(next)));
    }
}
BENCHMARK(FindMovedRow)->Arg(500)->Arg(50000)->Arg(500000)->Unit(benchmark::kMicrosecond);

/// All rows deleted by one command, brought back and deleted again.
void DeleteAllRows(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    std::vector<int> all(size_t(world.table.RowCount()));
    std::iota(all.begin(), all.end(), 0);
    for (auto _ : state) {
        world.table.history.Run(std::make_unique<STR_DEL_CMD>(world.table, all));
        world.table.history.Undo();
    }
}
BENCHMARK(DeleteAllRows)->Arg(50000)->Unit(benchmark::kMillisecond);

/// The order of a column and the list in it. "ratio" is the time beside the sort of the same texts by code units.
void SortRows(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    const int col = int(state.range(1));
    std::vector<QString> texts;
    for (int row = 0; row < world.table.RowCount(); ++row)
        texts.push_back(world.table.CellText(row, col));
    double ours = 0;
    double plain = 0;
    int direction = 1;
    for (auto _ : state) {
        direction = -direction;
        auto start = std::chrono::steady_clock::now();
        world.table.Reorder(StringOrder(world.table, direction * (col + 1)));
        ours += Seconds(start);
        state.PauseTiming();
        std::vector<QString> sorted = texts;
        start = std::chrono::steady_clock::now();
        std::stable_sort(sorted.begin(), sorted.end());
        plain += Seconds(start);
        state.ResumeTiming();
    }
    state.counters["ratio"] = ours / plain;
}
BENCHMARK(SortRows)->Args({50000, 0})->Args({50000, 5})->Unit(benchmark::kMillisecond);

} // namespace
