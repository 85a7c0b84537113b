// The string table: opening it beside the bare lines of its file, and one edit, whatever the table's size.

#include "Environment.h"
#include "StringCommands.h"
#include "StringFileReader.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstring>

namespace
{

constexpr int LANGUAGES = 12;

struct NoGrid : IStringGrid
{
    void ReportCellError(int, int, int) override {}
    void ShowMessage(int) override {}
};

class TableModel : public CResModel
{
public:
    TableModel(Environment &environment, ProcessTables &processTables) : CResModel(environment, processTables)
    {
        root.AddFolder(CreateFolder(KIND_STRINGS, -1));
    }
    const QString &PathName() const override { return path; }

private:
    QString path = QStringLiteral("/demo.vcproj");
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

struct World
{
    explicit World(const QByteArray &file)
    {
        qsizetype at = 0;
        StringFileReader reader(model, SourceOf(file, at));
        if (reader.Read(file.size()) != 0)
            std::abort();
        table.Rebuild();
    }
    Environment env{QStringLiteral("/nowhere")};
    ProcessTables tables;
    TableModel model{env, tables};
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

} // namespace
