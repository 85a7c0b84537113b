// SPDX-License-Identifier: MIT
// The panes of a layout in a window: a layout shown beside the load of its file, and what a user does in a layout of
// 5,000 components, until all panes are painted, beside the 16 ms of a frame.

#include "CLayoutRes.h"
#include "CListGrid.h"
#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CResDoc.h"
#include "Document.h"
#include "HostFiles.h"
#include "LayoutPanes.h"
#include "Selection.h"
#include "ViewHost.h"
#include "application.h"
#include "grid_views.h"

#include <QDir>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <optional>

namespace
{

constexpr int COMPONENTS = 5'000;
constexpr double FRAME = 0.016; // seconds

/// Says Yes to everything.
struct YesHost : IViewHost, IViewBoxes
{
    IViewBoxes &Boxes() override { return *this; }
    void ShowPane(Pane) override {}
    void RunAction(ActionId) override {}
    bool TakeEdit() override { return true; }
    void AfterCommand(std::function<void()> call) override { call(); }
    bool IsEnabled(ActionId) const override { return true; }
    void ShowLayoutMode(bool) override {}
    void ShowZoom(const QString &) override {}
    bool AskYesNo(const QString &) override { return true; }
    Answer AskYesNoCancel(const QString &) override { return Answer::Yes; }
    bool AskOkCancel(const QString &) override { return true; }
    void ShowMessage(const QString &, std::function<void()>) override { std::abort(); }
    QStringList OpenFileDialog(const QString &, int, bool, const QString &) override { return {}; }
    QString SaveFileDialog(const QString &, const QString &) override { return {}; }
    bool RunDialog(QDialog &) override { return false; }
};

/// A layout of panels with nine labels each over the whole screen, and a layout without components.
QByteArray LayoutsOf(int components)
{
    QByteArray text = "<TarvoXML><Layout id=\"ID_NONE\"/><Layout id=\"ID_MAIN\">";
    for (int i = 0; i < components; ++i) {
        const bool isPanel = i % 10 == 0;
        text += isPanel ? "<Panel" : "<Label";
        text += " pos=\"(" + QByteArray::number(i % 13 * 16) + ',' + QByteArray::number(i % 17 * 16) +
                ")\" size=\"(60,20)\" anchor=\"0,0\" bgColor=\"#80C0FF\" name=\"component" + QByteArray::number(i) +
                (isPanel ? "\">" : "\"/>");
        if (i % 10 == 9 || i == components - 1)
            text += "</Panel>";
    }
    return text + "</Layout></TarvoXML>";
}

/// A project with those layouts, on disk.
struct LayoutProject
{
    LayoutProject()
    {
        Put("bin/Morvanite.ini", "[Path]\nreso_set=sizes.ini\n[Layout]\nfolders=1\ncatalogue=classes.xml\n");
        Put("bin/sizes.ini", "[Resolution]\n240x320\n");
        Put("bin/classes.xml",
            "<catalogue version=\"1\"><class name=\"Base\"><member name=\"pos\" type=\"ZulPoint\"/><member "
            "name=\"size\" type=\"ZulSize\"/><member name=\"anchor\" type=\"ZulFPoint\"/><member name=\"bgColor\" "
            "type=\"ZulColor\"/></class><class name=\"Panel\" base=\"Base\"/><class name=\"Label\" base=\"Base\"/>"
            "</catalogue>");
        Put("demo/demo.vcproj", "");
        Put("demo/config.xml", "<config><zxa><zepversion>20</zepversion><tarvo>Checked</tarvo></zxa><resolution>"
                               "<Width>240</Width><Height>320</Height></resolution></config>");
        Put("demo/res/demo.res.xml", "<APP><RESOLUTION width=\"240\" height=\"320\" class=\"layout\">"
                                     "<LAYOUT>res\\layout.xml</LAYOUT></RESOLUTION></APP>");
        Put("demo/res/layout.xml", LayoutsOf(COMPONENTS));
    }
    [[nodiscard]] QString Path(const char *name) const { return folder.filePath(QLatin1String(name)); }

private:
    void Put(const char *name, const QByteArray &content) const
    {
        if (!QDir(folder.path()).mkpath(QFileInfo(QLatin1String(name)).path()) ||
            WriteFileAtomically(Path(name), content) != 0)
            std::abort();
    }

    QTemporaryDir folder{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/panes-XXXXXX")
                                                                   : QStringLiteral("panes-XXXXXX")};
};

/// The panes of that project, shown and painted.
struct PanesWorld : LayoutProject
{
    PanesWorld()
    {
        document = static_cast<CResDoc *>(documents.OpenDocumentFile(Path("demo/demo.vcproj")));
        if (!document)
            std::abort();
        selection.emplace(*document);
        document->selection = &*selection;
        panes.emplace(*document, host);
        panes->resize(1200, 900);
        panes->show();
        ShowLayout("ID_MAIN");
        grid = nullptr;
        for (QWidget *child : panes->Grid().findChildren<QWidget *>())
            grid = grid ? grid : dynamic_cast<CListGrid *>(child);
    }
    ~PanesWorld()
    {
        panes.reset();
        document->selection = nullptr;
        selection.reset();
    }

    /// Until it is painted.
    void ShowLayout(const char *id)
    {
        selection->SelectFolder(document->root.FindFolder(KIND_LAYOUT, QLatin1String(id), 3));
        document->UpdateAllViews(nullptr);
        Paint();
    }
    static void Paint()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // of what has been posted meanwhile
    }
    /// Types into the grid, or what has the focus in it.
    void Type(int key, const QString &text) const
    {
        QWidget *const focus = panes->focusWidget();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(focus && grid->isAncestorOf(focus) ? focus : grid, &press);
    }
    /// Opens the editor of a property of the selected component, and types a text in the place of the value.
    void BeginEdit(const QString &property, const QString &text)
    {
        int row = grid->model()->rowCount() - 1;
        while (row > 0 && grid->model()->index(row, 0).data().toString().trimmed() != property)
            --row;
        grid->setFocus();
        grid->SelectAlone(row, 0);
        for (const QChar character : text)
            Type(0, character);
        Paint();
    }

    Environment env{Path("bin")};
    ProcessTables tables;
    CFrameServices services;
    CDocManager documents{[this] { return std::make_unique<CResDoc>(env, tables, services); }};
    CResDoc *document = nullptr;
    YesHost host;
    std::optional<Selection> selection;
    std::optional<LayoutPanes> panes;
    CListGrid *grid = nullptr;
};

/// Another layout is shown until all panes are painted; "ratio" is the time beside that of the load of its file. At
/// most 3 is required.
void ShowLayout(benchmark::State &state)
{
    NeedApplication();
    PanesWorld world;
    const QByteArray file = world.Path("demo/res/layout.xml").toUtf8();
    double ours = 0;
    double load = 0;
    for (auto _ : state) {
        world.ShowLayout("ID_NONE");
        Time(ours, [&] { world.ShowLayout("ID_MAIN"); });
        IDPool pool;
        LayoutFileObject loaded(world.env, pool, 0);
        Time(load, [&] {
            if (loaded.Load(file) != 0)
                std::abort();
        });
    }
    state.counters["ratio"] = ours / load;
    state.counters["ours_ms"] = ours * 1000 / double(state.iterations());
}
BENCHMARK(ShowLayout)->Unit(benchmark::kMillisecond);

/// The Enter key that ends an editor, until all panes are painted; "ratio" is the time divided by that of a frame. At
/// most 1 is required for a value.
void EditLayout(benchmark::State &state, const char *property, const char *prefix)
{
    NeedApplication();
    PanesWorld world;
    double ours = 0;
    int number = 0;
    for (auto _ : state) {
        ++number;
        world.BeginEdit(QLatin1String(property), QLatin1String(prefix) + QString::number(number % 100 + 1));
        world.document->SetModifiedFlag(false);
        Time(ours, [&] {
            world.Type(Qt::Key_Return, {});
            PanesWorld::Paint();
        });
        if (!world.document->IsModified())
            std::abort();
    }
    state.counters["ratio"] = ours / double(state.iterations()) / FRAME;
}
BENCHMARK_CAPTURE(EditLayout, value, "pos", "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(EditLayout, name, "Class", "name")->Unit(benchmark::kMillisecond);

/// A component is added to the end, and deleted again; "ratio" as above.
void AddComponent(benchmark::State &state, bool isDeleted)
{
    NeedApplication();
    PanesWorld world;
    const ClassDescriptor &type = *world.document->classes->Find("Label");
    double ours = 0;
    double other = 0;
    for (auto _ : state) {
        Time(isDeleted ? other : ours, [&] {
            world.panes->AddComponent(type);
            PanesWorld::Paint();
        });
        Time(isDeleted ? ours : other, [&] {
            world.panes->List().Run(ACTION_DELETE);
            PanesWorld::Paint();
        });
    }
    state.counters["ratio"] = ours / double(state.iterations()) / FRAME;
}
BENCHMARK_CAPTURE(AddComponent, add, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(AddComponent, remove, true)->Unit(benchmark::kMillisecond);

} // namespace
