// SPDX-License-Identifier: MIT
// The check of the texts of a string table, compared with reading the table.

#include "CheckSettings.h"
#include "RuleReport.h"
#include "StringRows.h"
#include "TextContext.h"
#include "table_world.h"

#include <benchmark/benchmark.h>

namespace
{

/// All text rules in one thread. "ratio" is the time divided by that of reading the table's file, and "row_us" the time
/// for one row in microseconds: at most 1 and 50 are wanted.
void CheckRowsOfTable(benchmark::State &state)
{
    const QByteArray file = FileOf(state.range(0));
    const auto start = std::chrono::steady_clock::now();
    TableWorld<> world(file);
    const double read = Seconds(start);
    const CheckSettings settings;
    const TextContext context(world.model, settings);
    const std::vector<StringRow> rows = StringRowsOf(world.model);
    RuleReport report(settings, [&](Finding &&finding) { state.SkipWithError(qUtf8Printable(finding.text)); });
    double ours = 0;
    for (auto _ : state) {
        const auto from = std::chrono::steady_clock::now();
        RowCheck check(context);
        for (const StringRow &row : rows)
            check.Check(*row.head, report);
        ours += Seconds(from);
    }
    const double once = ours / double(state.iterations());
    state.counters["ratio"] = once / read;
    state.counters["row_us"] = once / double(state.range(0)) * 1e6;
}
BENCHMARK(CheckRowsOfTable)->Arg(50000)->Unit(benchmark::kMillisecond);

} // namespace
