// SPDX-License-Identifier: MIT
// The check of the texts of a string table, compared with reading the table.

#include "CheckSettings.h"
#include "RuleReport.h"
#include "StringRows.h"
#include "TextContext.h"
#include "table_world.h"

#include <benchmark/benchmark.h>

#include <ctime>

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

/// A string file with one row: English and eleven languages with the same text.
QByteArray RowFile(QStringView source, QStringView text)
{
    QString all =
        QStringLiteral("\uFEFFNumber of Language\t%1\r\nString ID\tResource Type\tDescription").arg(LANGUAGES);
    for (int n = 0; n < LANGUAGES; ++n)
        all += QStringLiteral("\tLanguage%1(%1)").arg(n);
    all.append(u"\r\nID_A\tNormal\tnote [lines:3]\t").append(source);
    for (int n = 1; n < LANGUAGES; ++n)
        all.append(u'\t').append(text);
    all += QStringLiteral("\r\n##number\t1\r\n");
    return {reinterpret_cast<const char *>(all.utf16()), all.size() * 2};
}

/// What the window does for each edit of a row: all text rules on it. "limit" is the processor time divided by 50
/// microseconds, so it must be below 1.
void CheckOneRow(benchmark::State &state, QStringView source, QStringView text, bool hasFindings)
{
    constexpr double MOST_SECONDS = 50e-6;
    TableWorld<> world(RowFile(source, text));
    const CheckSettings settings;
    const TextContext context(world.model, settings);
    const StringRow row = StringRowsOf(world.model).front();
    bool isFound = false;
    RuleReport report(settings, [&](Finding &&) { isFound = true; });
    RowCheck check(context);
    const std::clock_t start = std::clock();
    for (auto _ : state)
        check.Check(*row.head, report);
    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
    if (isFound != hasFindings)
        state.SkipWithError("the row has other findings than expected");
    state.counters["limit"] = seconds / double(state.iterations()) / MOST_SECONDS;
}
BENCHMARK_CAPTURE(CheckOneRow, WithoutFindings, u"Saved %2$s and %1$d more.\\nContinue?",
                  u"Und %1$d weitere, %2$s: gespeichert.\\nWeiter?", false);
BENCHMARK_CAPTURE(CheckOneRow, WithFindings, u"Saved %s and %d more.\\nContinue?",
                  u" Und %d weitere,  %s: gespeichert.\\qWeiter", true);

} // namespace
