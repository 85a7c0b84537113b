// SPDX-License-Identifier: MIT
// The string table: opening it compared with reading the lines of its file, one edit for any size of the table, and the
// keys of a filter.

#include "CellBlock.h"
#include "StringFilter.h"
#include "StringGaps.h"
#include "StringOrder.h"
#include "TextFinder.h"
#include "table_world.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>

namespace
{

using World = TableWorld<>;

/// "ratio" is the time divided by that of reading only the file's lines as texts; at most 3 is wanted.
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

/// Runs one command, undoes it and redoes it: 3 steps of at most 20 microseconds each.
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

/// Finds a row by its ID if it isn't at the given number, as after a sort; at most 5 microseconds.
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

/// Deletes all rows by one command, restores them and deletes them again.
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

/// Computes the order of a column and sorts the list by it. "ratio" is the time divided by that of sorting the same
/// texts by code units.
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

/// Texts that a user types key by key: found in no cell, in few, in all, in IDs.
const QStringList TYPED{QStringLiteral("zebra"), QStringLiteral("place 4999"), QStringLiteral("weather"),
                        QStringLiteral("STRING_1F")};

/// Calls `look` for each key, with the text typed so far.
template <typename Look> int ForEachKey(const Look &look)
{
    int keys = 0;
    for (const QString &text : TYPED) {
        for (qsizetype size = 1; size <= text.size(); ++size, ++keys)
            look(text.first(size));
    }
    return keys;
}

/// The time in seconds of a walk of all records that does nothing else.
double SecondsOfWalk(const StringTable &table)
{
    const auto start = std::chrono::steady_clock::now();
    qsizetype size = 0;
    for (CBaseRes *res : table.ColumnLanguage(StringTable::DESCRIPTION_COLUMN)->resources) {
        (void)AnyRecord(static_cast<const CStringRes &>(*res), [&size](const CStringRes &cell) {
            size += cell.Text().size() + cell.Language();
            return false;
        });
    }
    benchmark::DoNotOptimize(size);
    return Seconds(start);
}

/// The mean time of a key of a filter on all columns, in a list in the tree's order (0) or sorted (1), each key in all
/// rows (0) or in the rows that the previous key has left (1). "ratio" is the time divided by that of one walk of all
/// records; at most 3 is wanted, 2 is the aim.
void FilterKey(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    if (state.range(1) != 0)
        world.table.Reorder(StringOrder(world.table, -6));
    double ours = 0;
    double walk = 0;
    int keys = 0;
    for (auto _ : state) {
        StringCondition before;
        std::vector<int> rows;
        const auto start = std::chrono::steady_clock::now();
        keys = ForEachKey([&](const QString &text) {
            StringCondition condition;
            condition.text = text;
            const bool isWithin = state.range(2) != 0 && !before.IsEmpty() && condition.IsWithin(before);
            rows = RowsThatMeet(condition, world.table, isWithin ? &rows : nullptr);
            before = condition;
        });
        ours += Seconds(start) / keys;
        walk += SecondsOfWalk(world.table);
    }
    state.counters["key_ms"] = ours * 1e3 / double(state.iterations());
    state.counters["ratio"] = ours / walk;
}
BENCHMARK(FilterKey)
    ->ArgNames({"rows", "sorted", "narrowed"})
    ->ArgsProduct({{50000}, {0, 1}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

/// Searches all cells for a text with TextFinder. "ratio_..." is the time divided by that of QString::contains, for a
/// text that no cell has, one whose first letter is frequent, and one that all cells have.
void FindText(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    std::vector<QString> texts;
    for (int row = 0; row < world.table.RowCount(); ++row) {
        for (int col = StringTable::FIRST_LANGUAGE_COLUMN; col < world.table.ColumnCount(); ++col)
            texts.push_back(world.table.CellText(row, col));
    }
    const std::pair<const char *, QString> sought[] = {{"ratio_absent", QStringLiteral("zebra")},
                                                       {"ratio_frequent", QStringLiteral("extra")},
                                                       {"ratio_found", QStringLiteral("SUNNY")}};
    for (auto _ : state) {
        for (const auto &[name, text] : sought) {
            const TextFinder finder(text, /*matchCase=*/false);
            auto start = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(
                std::count_if(texts.begin(), texts.end(), [&](const QString &cell) { return finder.In(cell); }));
            const double ours = Seconds(start);
            start = std::chrono::steady_clock::now();
            benchmark::DoNotOptimize(std::count_if(texts.begin(), texts.end(), [&](const QString &cell) {
                return cell.contains(text, Qt::CaseInsensitive);
            }));
            state.counters[name] = ours / Seconds(start);
        }
    }
}
BENCHMARK(FindText)->Arg(50000)->Unit(benchmark::kMillisecond);

class TableItems : public QAbstractTableModel
{
public:
    explicit TableItems(const StringTable &stringTable) : table(stringTable) {}
    int rowCount(const QModelIndex & = {}) const override { return table.RowCount(); }
    int columnCount(const QModelIndex & = {}) const override { return table.ColumnCount(); }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? table.CellText(index.row(), index.column()) : QVariant();
    }

private:
    const StringTable &table;
};

/// The same keys through a proxy of Qt, for comparison.
void FilterKeyOfProxy(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    TableItems items(world.table);
    for (auto _ : state) {
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&items);
        proxy.setFilterKeyColumn(-1);
        proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
        const auto start = std::chrono::steady_clock::now();
        const int keys = ForEachKey([&](const QString &text) {
            proxy.setFilterFixedString(text);
            benchmark::DoNotOptimize(proxy.rowCount());
        });
        state.counters["key_ms"] = Seconds(start) * 1e3 / keys;
    }
}
BENCHMARK(FilterKeyOfProxy)->Arg(50000)->Unit(benchmark::kMillisecond)->Iterations(1);

/// Counts all gaps. "ratio" is the time divided by that of one walk as above; at most 2 is wanted.
void CountAllGaps(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    double ours = 0;
    double walk = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(CountGaps(world.table));
        ours += Seconds(start);
        walk += SecondsOfWalk(world.table);
    }
    state.counters["ratio"] = ours / walk;
}
BENCHMARK(CountAllGaps)->Arg(50000)->Unit(benchmark::kMillisecond);

/// Pastes a block of all cells by ID over the table, with every text changed: first the plan, then the step, which is
/// undone.
void PasteAll(benchmark::State &state)
{
    World world(FileOf(state.range(0)));
    std::vector<int> rows(size_t(world.table.RowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    std::vector<int> columns(size_t(world.table.ColumnCount()));
    std::iota(columns.begin(), columns.end(), 0);
    CellRows block = CellsOf(world.table, rows, columns);
    for (size_t line = 1; line < block.size(); ++line) {
        for (qsizetype place = 3; place < block[line].size(); ++place)
            block[line][place] += u'x';
    }
    const QString tsv = ToTsv(block);
    double plan = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        const PastePlan paste = PlanPaste(world.table, FromTsv(tsv), {0, 0, {}, rows, columns});
        plan += Seconds(start);
        world.table.history.Run(std::make_unique<STR_SET_CMD>(world.table, paste.changes, paste.rows));
        world.table.history.Undo();
    }
    state.counters["plan_ms"] = plan * 1e3 / double(state.iterations());
}
BENCHMARK(PasteAll)->Arg(50000)->Unit(benchmark::kMillisecond);

} // namespace
