// SPDX-License-Identifier: MIT
// The grid of the string table: each operation is compared with the least work that it can consist of, or with Qt's
// own.
#include "NameOrder.h"
#include "StringCommands.h"
#include "StringGridModel.h"
#include "StringOrder.h"
#include "grid_views.h"
#include "table_world.h"

#include <QScrollBar>

#include <malloc.h>

#include <numeric>

namespace
{

constexpr int ROWS = 50'000;

/// The table as texts in a vector, with its current order.
class PlainModel : public QAbstractTableModel
{
public:
    void Take(const StringTable &table)
    {
        columns = table.ColumnCount();
        texts.clear();
        for (int row = 0; row < table.RowCount(); ++row) {
            for (int col = 0; col < columns; ++col)
                texts.push_back(table.CellText(row, col));
        }
        order.resize(size_t(table.RowCount()));
        std::iota(order.begin(), order.end(), 0);
    }
    [[nodiscard]] const QString &Text(int row, int col) const
    {
        return texts[size_t(row) * size_t(columns) + size_t(col)];
    }
    void Show(std::vector<int> inOrder)
    {
        beginResetModel();
        order = std::move(inOrder);
        endResetModel();
    }
    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(order.size()); }
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : columns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? Text(order[size_t(index.row())], index.column()) : QVariant();
    }

private:
    int columns = 0;
    std::vector<QString> texts;
    std::vector<int> order;
};

using World = TableWorld<StringGridModel>;

void SortNow(World &world, int state)
{
    world.table.Reorder(StringOrder(world.table, state));
}

/// Reads rows, sorts them by ID and paints them; "ratio" compares with sorting the IDs and a plain view of texts in a
/// vector; at most 1.6 is required, 1.2 is the aim.
void OpenGrid(benchmark::State &state)
{
    NeedApplication();
    World world(FileOf(ROWS));
    PlainModel plain;
    plain.Take(world.table);
    double ours = 0;
    double bare = 0;
    for (auto _ : state) {
        world.grid.SetTable(nullptr);
        Time(ours, [&] {
            world.grid.SetTable(&world.table);
            OurView view(world.grid);
            {
                const StringTable::Batch batch(world.table);
                world.table.Rebuild();
                SortNow(world, 1);
            }
            Paint(view);
        });
        Time(bare, [&] {
            StockView view(plain);
            plain.Show(NameOrder().Sorted(
                ROWS, [&](int row) { return plain.Text(row, 0); }, 1));
            Paint(view);
        });
    }
    state.counters["ratio"] = ours / bare;
    state.counters["ours_ms"] = ours * 1000 / double(state.iterations());
}
BENCHMARK(OpenGrid)->Unit(benchmark::kMillisecond);

size_t InUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// "ratio" is the memory of the model and the painted view divided by that of the table; at most 0.08 is required, 0.05
/// is the aim.
void GridMemory(benchmark::State &state)
{
    NeedApplication();
    { // memory that Qt keeps for ever
        PlainModel none;
        OurView view(none);
        Paint(view);
    }
    double table = 0;
    double grid = 0;
    for (auto _ : state) {
        const QByteArray file = FileOf(ROWS);
        const size_t before = InUse();
        World world(file);
        const size_t opened = InUse();
        world.grid.SetTable(&world.table);
        OurView view(world.grid);
        SortNow(world, 1);
        Paint(view);
        table += double(opened - before);
        grid += double(InUse() - opened);
    }
    state.counters["ratio"] = grid / table;
    state.counters["grid_MB"] = grid / double(state.iterations()) / 1e6;
}
BENCHMARK(GridMemory)->Iterations(2)->Unit(benchmark::kMillisecond);

/// Sorts by any column; "ratio" compares with sorting only the texts; at most 1.4 is required, 1.15 is the aim.
void SortGrid(benchmark::State &state)
{
    NeedApplication();
    const int col = int(state.range(0));
    const int keyColumn = col == StringTable::KIND_COLUMN ? StringTable::ID_COLUMN : col;
    World world(FileOf(ROWS));
    world.grid.SetTable(&world.table);
    PlainModel plain;
    plain.Take(world.table);
    OurView view(world.grid);
    view.SelectAlone(ROWS / 2, 0);
    double ours = 0;
    double keys = 0;
    int direction = 1;
    for (auto _ : state) {
        direction = -direction;
        Time(ours, [&] { SortNow(world, direction * (col + 1)); });
        Time(keys, [&] {
            benchmark::DoNotOptimize(NameOrder().Sorted(
                ROWS, [&](int row) { return plain.Text(row, keyColumn); }, direction));
        });
    }
    state.counters["ratio"] = ours / keys;
}
BENCHMARK(SortGrid)->Arg(0)->Arg(1)->Arg(2)->Arg(5)->Unit(benchmark::kMillisecond);

/// Deletes all rows by one command and restores them, and paints the grid both times; "ratio" compares with the table
/// without a grid; at most 1.4 is required, 1.1 is the aim.
void DeleteAllInGrid(benchmark::State &state)
{
    NeedApplication();
    const QByteArray file = FileOf(ROWS);
    World world(file);
    TableWorld<> alone(file);
    world.grid.SetTable(&world.table);
    OurView view(world.grid);
    Paint(view);
    std::vector<int> all(static_cast<size_t>(ROWS));
    std::iota(all.begin(), all.end(), 0);
    double ours = 0;
    double bare = 0;
    for (auto _ : state) {
        Time(ours, [&] {
            world.table.history.Run(std::make_unique<STR_DEL_CMD>(world.table, all));
            Paint(view);
            world.table.history.Undo();
            Paint(view);
        });
        Time(bare, [&] {
            alone.table.history.Run(std::make_unique<STR_DEL_CMD>(alone.table, all));
            alone.table.history.Undo();
        });
    }
    state.counters["ratio"] = ours / bare;
}
BENCHMARK(DeleteAllInGrid)->Unit(benchmark::kMillisecond);

/// Paints a full frame after scrolling by some rows; "ratio" compares with Qt's own delegate and texts in a vector; at
/// most 0.7 is required, 0.4 is the aim.
void ScrollGrid(benchmark::State &state)
{
    NeedApplication();
    World world(FileOf(ROWS));
    world.grid.SetTable(&world.table);
    world.grid.showsGaps = true;
    PlainModel plain;
    plain.Take(world.table);
    OurView ours(world.grid);
    StockView stock(plain);
    double our = 0;
    double other = 0;
    const auto scroll = [&](QTableView &view) {
        QScrollBar &bar = *view.verticalScrollBar();
        bar.setValue((bar.value() + int(state.range(0))) % bar.maximum());
        Paint(view);
    };
    scroll(ours);
    scroll(stock);
    for (auto _ : state) {
        Time(our, [&] { scroll(ours); });
        Time(other, [&] { scroll(stock); });
    }
    state.counters["ratio"] = our / other;
    state.counters["ours_ms"] = our * 1000 / double(state.iterations());
}
BENCHMARK(ScrollGrid)->Arg(3)->Arg(40)->Unit(benchmark::kMillisecond);

} // namespace
