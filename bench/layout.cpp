// SPDX-License-Identifier: MIT
// Layout files: loading one compared with parsing it, saving it compared with printing it, and setting one property or
// naming a new component, for any size of the layout. The frames of the preview compared with a walk of the tree.

#include "CLayoutRes.h"
#include "CatalogueFile.h"
#include "Environment.h"
#include "HostFiles.h"
#include "LayoutFrames.h"

#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <tinyxml.h>

#include <chrono>

namespace
{

/// A layout of panels with nine labels each.
QByteArray FileOf(qint64 components)
{
    QByteArray text = "<TarvoXML>\n    <Layout id=\"ID_MAIN\">\n";
    for (qint64 i = 0; i < components; ++i) {
        const QByteArray number = QByteArray::number(i);
        const bool isPanel = i % 10 == 0;
        text += isPanel ? "        <Panel" : "            <Label";
        text += " pos=\"(" + number + ", 20)\" size=\"(100, 24)\" bgColor=\"#FFFFFF\" text=\"@ID_STRING_" + number +
                "\" name=\"component" + number + "\"" + (isPanel ? ">\n" : " />\n");
        if (i % 10 == 9 || i == components - 1)
            text += "        </Panel>\n";
    }
    return text + "    </Layout>\n</TarvoXML>\n";
}

struct World
{
    explicit World(qint64 components)
    {
        if (WriteFileAtomically(path, FileOf(components)) != 0)
            std::abort();
        std::vector<Finding> errors;
        const QByteArray classes =
            "<catalogue version=\"1\"><class name=\"Base\"><member name=\"pos\" type=\"ZulPoint\"/>"
            "<member name=\"size\" type=\"ZulSize\"/><member name=\"bgColor\" type=\"ZulColor\"/>"
            "<member name=\"text\" type=\"ZulWString\"/><member name=\"anchor\" type=\"ZulFPoint\"/>"
            "<member name=\"borderColor\" type=\"ZulColor\"/></class><class name=\"Panel\" base=\"Base\"/>"
            "<class name=\"Label\" base=\"Base\"/></catalogue>";
        if (!ParseCatalogue(env, classes, QStringLiteral("catalogue"), catalogue, errors))
            std::abort();
    }

    [[nodiscard]] LayoutFileRef Load()
    {
        auto file = std::make_shared<LayoutFileObject>(env, pool, 0);
        if (file->Load(path.toUtf8()) != 0)
            std::abort();
        return file;
    }

    Environment env{QStringLiteral("/nowhere")};
    QTemporaryDir folder{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/layout-XXXXXX")
                                                                   : QStringLiteral("layout-XXXXXX")};
    QString path = folder.filePath(QStringLiteral("layout.xml"));
    ClassCatalogue catalogue;
    IDPool pool;
};

double Seconds(std::chrono::steady_clock::time_point from)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

/// "ratio" is the time divided by that of parsing alone, without reading the file; at most 2 is wanted.
void LoadLayouts(benchmark::State &state)
{
    World world(state.range(0));
    const QByteArray text = FileOf(state.range(0));
    double ours = 0;
    double parse = 0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        LayoutFileRef file = world.Load();
        ours += Seconds(start);
        state.PauseTiming();
        file.reset();
        start = std::chrono::steady_clock::now();
        TiXmlDocument document;
        document.Parse(text.constData(), nullptr, TIXML_ENCODING_UTF8);
        parse += Seconds(start);
        state.ResumeTiming();
    }
    state.counters["ratio"] = ours / parse;
}
BENCHMARK(LoadLayouts)->Arg(100000)->Unit(benchmark::kMillisecond);

/// The same for a save with its file, compared with printing alone.
void SaveLayouts(benchmark::State &state)
{
    World world(state.range(0));
    const LayoutFileRef file = world.Load();
    TiXmlDocument document;
    document.Parse(FileOf(state.range(0)).constData(), nullptr, TIXML_ENCODING_UTF8);
    double ours = 0;
    double print = 0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        if (file->Save(file->path) != 0)
            std::abort();
        ours += Seconds(start);
        state.PauseTiming();
        start = std::chrono::steady_clock::now();
        TiXmlPrinter printer;
        document.Accept(&printer);
        benchmark::DoNotOptimize(printer.Size());
        print += Seconds(start);
        state.ResumeTiming();
    }
    state.counters["ratio"] = ours / print;
}
BENCHMARK(SaveLayouts)->Arg(100000)->Unit(benchmark::kMillisecond);

/// Makes the typed objects of a loaded file.
void OpenLayout(benchmark::State &state)
{
    World world(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        const LayoutFileRef file = world.Load();
        state.ResumeTiming();
        auto layout = CLayoutRes::Create(file, file->All().front().get(), world.catalogue);
        benchmark::DoNotOptimize(layout);
        state.PauseTiming();
        layout.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenLayout)->Arg(100000)->Unit(benchmark::kMillisecond);

/// Sets one property of a component in the middle, found by its name; at most 5 microseconds for any size.
void SetProperty(benchmark::State &state)
{
    World world(state.range(0));
    const LayoutFileRef file = world.Load();
    const auto layout = CLayoutRes::Create(file, file->All().front().get(), world.catalogue);
    CZulClass &panel = *layout->Components().at(layout->Components().size() / 2);
    CZulClass &label = *panel.subComponents.at(4);
    int number = 0;
    for (auto _ : state) {
        const NarrowText text = ++number % 2 ? "(12, 34)" : "(56,78)";
        static_cast<CZulBase *>(label.FindMember("pos"))->SetText(text);
    }
}
BENCHMARK(SetProperty)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

/// The number of components, and the number of those at the top level.
std::pair<int, int> Walk(const std::vector<std::unique_ptr<CZulClass>> &objects)
{
    std::pair<int, int> counts;
    for (const auto &object : objects) {
        counts.first += 1 + Walk(object->subComponents).first;
        counts.second += object->parent ? 0 : 1;
    }
    return counts;
}

/// The frames of the preview after one value of a component has changed, or after many have. "ratio" is the time
/// divided by that of a walk of the tree that reads no value; at most 2 is wanted for one.
void RefreshFrames(benchmark::State &state, bool isOne)
{
    World world(state.range(0));
    const LayoutFileRef file = world.Load();
    const auto layout = CLayoutRes::Create(file, file->All().front().get(), world.catalogue);
    PreviewEntries entries = EntriesOf(*layout);
    const CZulClass &component = *entries[entries.size() / 2].component;
    auto &pos = static_cast<CZulBase &>(*component.FindMember("pos"));
    double ours = 0;
    double walk = 0;
    int number = 0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        pos.SetText(++number % 2 ? "(12, 34)" : "(56,78)");
        if (isOne)
            Refresh(entries, component);
        else
            Refresh(entries);
        ours += Seconds(start);
        state.PauseTiming();
        start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(Walk(layout->Components()));
        walk += Seconds(start);
        state.ResumeTiming();
    }
    state.counters["ratio"] = ours / walk;
}
BENCHMARK_CAPTURE(RefreshFrames, one, true)->Arg(5000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(RefreshFrames, all, false)->Arg(5000)->Arg(100000)->Unit(benchmark::kMicrosecond);

/// The frames of a layout whose tree has changed.
void BuildFrames(benchmark::State &state)
{
    World world(state.range(0));
    const LayoutFileRef file = world.Load();
    const auto layout = CLayoutRes::Create(file, file->All().front().get(), world.catalogue);
    PreviewEntries entries;
    for (auto _ : state)
        entries = EntriesOf(*layout, std::move(entries));
    benchmark::DoNotOptimize(entries.data());
}
BENCHMARK(BuildFrames)->Arg(5000)->Arg(100000)->Unit(benchmark::kMicrosecond);

/// Makes the first name for a new component of a layout whose components have the names that new ones get, and finds a
/// component by its name. Neither may take longer for one component if there are more components.
void FirstNameOfComponent(benchmark::State &state)
{
    World world(0);
    const LayoutFileRef file = world.Load();
    const auto layout = CLayoutRes::Create(file, file->All().front().get(), world.catalogue);
    quint32 number = 0;
    for (qint64 i = 0; i < state.range(0); ++i) {
        auto component = std::make_unique<ComponentObject>();
        component->className = "Label";
        component->name = layout->NewName(number);
        layout->AddComponent(world.env, std::move(component));
    }
    for (auto _ : state) {
        quint32 counter = 0;
        if (layout->FindComponent(layout->NewName(counter)) || counter != number + 1)
            std::abort();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(FirstNameOfComponent)->Arg(100)->Arg(5000)->Arg(100000)->Unit(benchmark::kMicrosecond);

} // namespace
