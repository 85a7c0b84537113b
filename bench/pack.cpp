// SPDX-License-Identifier: MIT
// Phases of a pack, for any number of parts.

#include "BenchModel.h"
#include "Phases.h"

#include <benchmark/benchmark.h>

namespace
{

/// Packs one string for each of many languages. The time for one language must not grow with their number.
void LanguagesOfAPack(benchmark::State &state)
{
    constexpr qint64 NUMBERS = 65535; // that a language can have
    StringsWorld world;
    CResFolder &strings = *world.model.root.FindFolder(KIND_STRINGS, 2);
    for (qint64 n = -1; n < state.range(0); ++n) { // the first column has descriptions
        strings.AddFolder(world.model.CreateFolder(KIND_LANGUAGE, qint32(n % NUMBERS)));
        auto string = world.model.CreateStringRes("ID_" + QByteArray::number(n + 1));
        string->SetText(QStringLiteral("The weather will be sunny"));
        strings.subfolders.back()->AddResource(std::move(string));
    }
    PieceMemory memory;
    OutputGuard guard({});
    PackFiles files(nullptr, guard, 0);
    ScratchFolder scratch({});
    const packinfo info;
    PictureConverters converters(world.model.env, info.options, scratch);
    for (auto _ : state) {
        PackImage image(memory, EntryPadding::None);
        PackContext context{world.model, info, image, files, scratch, converters, nullptr, {}};
        if (ConstructLanguages(context) != PACK_OK || qint64(image.items.size()) != state.range(0))
            std::abort();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LanguagesOfAPack)->Arg(1000)->Arg(80000)->Unit(benchmark::kMillisecond);

} // namespace
