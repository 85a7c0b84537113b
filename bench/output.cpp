// SPDX-License-Identifier: MIT
// The output pane: the time for a line must not grow with the number of lines.
#include "CInfoPane.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace
{

void AppendLines(benchmark::State &state)
{
    static char name[] = "micro";
    static char *arguments[] = {name, nullptr};
    static int count = 1;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!QApplication::instance())
        new QApplication(count, arguments); // other benchmarks need it too
    for (auto _ : state) {
        CInfoPane pane;
        pane.resize(400, 300);
        pane.show();
        for (qint64 i = 0; i < state.range(0); ++i) {
            pane.Append(u"Warning 12345: file not found - [ID_FILE_NUMBER_012345] (Line 12346).\r\n");
            if (i % 100 == 0)
                pane.Flush();
        }
        pane.Flush();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(AppendLines)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
