// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"
#include "TestProject.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{

QByteArray Layout(const QByteArray &id, const QByteArray &components = "<Label text=\"Hello\" name=\"greeting\" />")
{
    return "    <Layout id=\"" + id + "\">\n        " + components + "\n    </Layout>\n";
}

QByteArray LayoutFile(const QByteArray &layouts)
{
    return "<TarvoXML>\n" + layouts + "</TarvoXML>\n";
}

/// Returns the list's element for the layouts of a resolution, as it is written.
QByteArray Resolution(const QByteArray &size, const QByteArray &inside)
{
    const QByteArray tag = "    <RESOLUTION " + size + " class=\"layout\"";
    return inside.isEmpty() ? tag + " />\n" : tag + ">\n        " + inside + "\n    </RESOLUTION>\n";
}

constexpr char SMALL[] = "width=\"176\" height=\"220\"";
constexpr char SCREEN[] = "width=\"240\" height=\"320\"";
constexpr char NAMED[] = "<LAYOUT>res\\screens.xml</LAYOUT>";

/// Returns the elements of layouts as a save writes them.
QByteArray Elements(const QByteArray &ofScreen, const QByteArray &ofSmall = {})
{
    return Resolution(SMALL, ofSmall) + Resolution(SCREEN, ofScreen);
}

/// A project with layouts for its own screen, 240x320. 176x220 is in use too and has no layouts.
struct Layouts : testing::Test
{
    Layouts()
    {
        project.folder.MakeFolder("share");
        qputenv("XDG_DATA_HOME", project.folder.Path("share").toUtf8());
    }
    ~Layouts() override { qunsetenv("XDG_DATA_HOME"); }

    static QByteArray List(const QByteArray &ofScreen = NAMED, const QByteArray &ofSmall = {})
    {
        return "<APP>" + Resolution(SCREEN, ofScreen) + Resolution(SMALL, ofSmall) + "</APP>";
    }

    void UseCatalogue(const QByteArray &catalogue)
    {
        project.folder.Put("bin/catalogue.xml", catalogue);
        project.folder.Put("bin/Morvanite.ini",
                           "[Path]\nreso_set=sizes.ini\n[Layout]\nfolders=1\ncatalogue=catalogue.xml\n");
    }

    CResDoc &Open()
    {
        project.documents.CloseAll();
        (void)project.TakeOutput();
        doc = project.Open();
        EXPECT_NE(doc, nullptr);
        folder = doc->root.FindFolder(KIND_RESO_LAYOUTS, 1, 2);
        return *doc;
    }

    /// Saves. Returns the output between the first line and the last.
    QByteArray Save(int code = 0)
    {
        (void)project.TakeOutput();
        EXPECT_TRUE(doc->DoFileSave());
        EXPECT_EQ(doc->lastSave.write, code);
        const QByteArray said = project.TakeOutput();
        return said.first(said.lastIndexOf("[demo] save"));
    }

    /// Returns the elements of layouts in the list.
    QByteArray Written() const
    {
        const QRegularExpression element(u" *<RESOLUTION[^>]*class=\"layout\"( />|>.*?</RESOLUTION>)\n"_s,
                                         QRegularExpression::DotMatchesEverythingOption);
        QString text;
        for (const auto &match : element.globalMatch(QString::fromUtf8(project.folder.Get(LIST))))
            text += match.captured();
        return text.toUtf8();
    }

    QStringList Titles() const
    {
        QStringList titles;
        for (const auto &sub : folder->subfolders)
            titles.append(sub->title);
        return titles;
    }

    CLayoutRes &LayoutAt(size_t place) const
    {
        return static_cast<CLayoutRes &>(*folder->subfolders.at(place)->resources.First());
    }

    quint32 Handle(const char *file) const { return project.monitor.HandleOf(project.folder.Path(file)); }

    static constexpr const char *LIST = "demo/res/demo.res.xml";
    static constexpr const char *FILE = "demo/res/screens.xml";
    TestProject project{List(), "[Layout]\nfolders=1\n"};
    CResDoc *doc = nullptr;
    CResFolder *folder = nullptr;
};

} // namespace

TEST_F(Layouts, AreInFoldersByResolutionAndAreSavedUnchanged)
{
    const QByteArray file = LayoutFile(Layout("ID_MAIN") + Layout("ID_ABOUT"));
    project.folder.Put(FILE, file);
    Open();
    EXPECT_EQ(project.TakeOutput(),
              "Loading resource from \"res\\demo.res.xml\"...\r\nLoading layouts from \"res\\screens.xml\"...\r\n"
              "[demo] open - 0 error(s), 0 warning(s)\r\n");
    QStringList tree;
    const CResFolder &all = *doc->root.subfolders.at(2);
    for (const auto &sub : all.subfolders)
        tree.append(QString::asprintf("%x %d ", sub->kind, sub->index) + sub->title);
    EXPECT_EQ(all.title, u"Layouts"_s);
    EXPECT_EQ(tree,
              QStringList({u"10010 0 176x220"_s, u"10010 1 240x320"_s, u"30010 2 320x240"_s, u"10010 -1 Default"_s}));
    EXPECT_EQ(Titles(), QStringList({u"ID_MAIN"_s, u"ID_ABOUT"_s}));
    EXPECT_EQ(LayoutAt(0).FindComponent("greeting")->component->GetAttribute("text"), "Hello");
    EXPECT_FALSE(doc->IsModified());
    EXPECT_TRUE(doc->ProjectFiles().contains(project.folder.Path(FILE)));

    EXPECT_EQ(Save(), "");
    EXPECT_EQ(Written(), Elements(NAMED));
    EXPECT_EQ(project.folder.Get(FILE), file);
    EXPECT_NE(Handle(FILE), 0U);
    EXPECT_TRUE(project.folder.Get("demo/ResID/ResID.h").contains("#define  ID_ABOUT    1\r\n"));

    ASSERT_TRUE(LayoutAt(0).Rename(doc->ids, "ID_START"));
    EXPECT_TRUE(folder->DeleteFolder(folder->subfolders.back().get()));
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(Save(), "");
    EXPECT_EQ(project.folder.Get(FILE), LayoutFile(Layout("ID_START")));
}

TEST_F(Layouts, AreIgnoredWithoutTheSettingAndTheListStaysUnchanged)
{
    project.folder.Put("bin/Morvanite.ini", "[Path]\nreso_set=sizes.ini\n");
    project.folder.Put(FILE, LayoutFile(Layout("ID_MAIN")));
    Open();
    EXPECT_TRUE(project.TakeOutput().contains("Warning 1: unknown XML tag [LAYOUT] discarded (Line 3).\r\n"));
    EXPECT_EQ(doc->root.subfolders.size(), 3U);
    EXPECT_EQ(doc->CreateLayoutRes(1), nullptr);
    EXPECT_EQ(Save(), "");
    EXPECT_EQ(Written(), "");
    EXPECT_EQ(project.folder.Get(FILE), LayoutFile(Layout("ID_MAIN")));
}

TEST_F(Layouts, ANewLayoutGetsAFreeNameAndAFileOfItsResolution)
{
    project.folder.Put(LIST, List(QByteArray()));
    project.folder.Put("demo/res/layout_demo_240x320.xml", "somebody's work");
    Open();
    EXPECT_EQ(doc->CreateLayoutRes(-1), nullptr);
    EXPECT_EQ(doc->CreateLayoutRes(2), nullptr) << "not in use";
    ASSERT_NE(doc->CreateLayoutRes(1), nullptr);
    ASSERT_TRUE(LayoutAt(0).Rename(doc->ids, "ID_LAYOUT_0002"));
    EXPECT_EQ(doc->CreateLayoutRes(1)->title, u"ID_LAYOUT_0001"_s);
    EXPECT_EQ(doc->CreateLayoutRes(1)->title, u"ID_LAYOUT_0003"_s);
    EXPECT_EQ(doc->CreateLayoutRes(0)->title, u"ID_LAYOUT_0001"_s) << "of another resolution";
    EXPECT_EQ(LayoutAt(0).File(), LayoutAt(2).File());
    auto label = std::make_unique<ComponentObject>();
    label->className = "Label";
    EXPECT_NE(LayoutAt(0).AddComponent(*project.env, std::move(label)), nullptr);

    EXPECT_EQ(Save(), "");
    EXPECT_EQ(Written(), Elements("<LAYOUT>res\\layout_demo_240x320.xml</LAYOUT>",
                                  "<LAYOUT>res\\layout_demo_176x220.xml</LAYOUT>"));
    EXPECT_EQ(project.folder.Get("demo/res/layout_demo_240x320.xml"),
              LayoutFile(Layout("ID_LAYOUT_0002", "<Label />") +
                         "    <Layout id=\"ID_LAYOUT_0001\" />\n    <Layout id=\"ID_LAYOUT_0003\" />\n"));
    EXPECT_EQ(project.folder.Get("share/Trash/files/layout_demo_240x320.xml"), "somebody's work");
    EXPECT_NE(Handle("demo/res/layout_demo_240x320.xml"), 0U);
    Open();
    EXPECT_EQ(folder->subfolders.size(), 3U);

    // The file of a new layout that has the same bytes already isn't moved to the trash.
    const QByteArray same = LayoutFile("    <Layout id=\"ID_LAYOUT_0001\" />\n");
    project.folder.Put(LIST, List(QByteArray()));
    project.folder.Put("demo/res/layout_demo_240x320.xml", same);
    Open();
    ASSERT_NE(doc->CreateLayoutRes(1), nullptr);
    EXPECT_EQ(Save(), "");
    EXPECT_EQ(project.folder.Get("demo/res/layout_demo_240x320.xml"), same);
}

TEST_F(Layouts, AFileThatDoesNotLoadCompletelyIsKeptUnchangedInTheList)
{
    UseCatalogue("<catalogue version=\"1\"><structure name=\"Insets\"></structure></catalogue>");
    const QByteArray kept = "Warning 1: layout file \"res\\screens.xml\" wasn't loaded whole and is left as it is.\r\n";
    const QByteArray wholeFile = "Error 1: failed to load layout file \"res\\screens.xml\".\r\n";
    const QByteArray oneLayout = "Error 1: failed to load layout [ID_A].\r\n";
    for (const auto &[layouts, message, titles] :
         {std::tuple(QByteArray("<Layout"), wholeFile, QStringList()),
          {Layout("ID_A") + Layout("ID_A"), wholeFile, QStringList()},
          {Layout("ID_A", "<Label/><Insets/>") + Layout("ID_B"), oneLayout, QStringList(u"ID_B"_s)}}) {
        const QByteArray file = LayoutFile(layouts);
        project.folder.Put(FILE, file);
        Open();
        EXPECT_TRUE(project.TakeOutput().contains("screens.xml\"...\r\n" + message)) << file.constData();
        EXPECT_EQ(Titles(), titles);
        EXPECT_EQ(doc->CreateLayoutRes(1), nullptr);
        folder->Clear();
        EXPECT_EQ(Save(), kept);
        EXPECT_EQ(Written(), Elements(NAMED));
        EXPECT_EQ(project.folder.Get(FILE), file);
        EXPECT_TRUE(doc->ProjectFiles().contains(project.folder.Path(FILE)));

        project.folder.Put(FILE, LayoutFile(Layout("ID_GOOD")));
        doc->OnWatchedFileChanged(Handle(FILE));
        EXPECT_EQ(Titles(), QStringList({u"ID_GOOD"_s})) << "mended";
        EXPECT_NE(doc->CreateLayoutRes(1), nullptr);
        EXPECT_EQ(Save(), "");
        EXPECT_TRUE(project.folder.Get(FILE).contains("ID_LAYOUT_0001"));
    }
}

TEST_F(Layouts, TwoFilesForAResolutionAndTwoResolutionsOfAFileAreKept)
{
    project.folder.Put(FILE, LayoutFile(Layout("ID_A")));
    project.folder.Put("demo/res/more.xml", LayoutFile(Layout("ID_B")));
    const QByteArray two = "<LAYOUT>res\\screens.xml</LAYOUT>\n        <LAYOUT>res\\more.xml</LAYOUT>";
    project.folder.Put(LIST, List(two));
    Open();
    EXPECT_TRUE(project.TakeOutput().contains("Error 1: failed to load layout file \"res\\more.xml\".\r\n"));
    LayoutAt(0).Rename(doc->ids, "ID_C");
    doc->OnWatchedFileChanged(Handle(FILE));
    EXPECT_EQ(Titles(), QStringList({u"ID_A"_s}));
    (void)Save();
    EXPECT_EQ(Written(), Elements(two));
    EXPECT_EQ(project.folder.Get("demo/res/more.xml"), LayoutFile(Layout("ID_B")));

    project.folder.Put(LIST, List(NAMED, "<LAYOUT>RES\\Screens.xml</LAYOUT>"));
    Open();
    EXPECT_EQ(Save(-3), "Error 1: failed to write to file \"res\\screens.xml\".\r\n");
    EXPECT_EQ(project.folder.Get(FILE), LayoutFile(Layout("ID_A")));
}

TEST_F(Layouts, AFileWithoutLayoutsIsMovedToTheTrash)
{
    project.folder.Put(FILE, LayoutFile(Layout("ID_A")));
    Open();
    LayoutAt(0).File()->Remove(LayoutAt(0).Id()); // its resource remains
    EXPECT_EQ(Save(), "");
    EXPECT_EQ(Written(), Elements({}));
    EXPECT_TRUE(project.folder.Has("share/Trash/files/screens.xml"));
    EXPECT_FALSE(project.folder.Has(FILE));
}

TEST_F(Layouts, AreReadAgainWhenTheirFileChanges)
{
    project.folder.Put(FILE, LayoutFile(Layout("ID_A") + Layout("ID_B")));
    Open();
    CountingView view;
    doc->AddView(&view);
    doc->selection = &view;
    view.selected = folder->subfolders.at(1).get();
    project.folder.Put(FILE, LayoutFile(Layout("ID_NEW") + Layout("ID_B")));
    (void)project.TakeOutput();
    doc->OnWatchedFileChanged(Handle(FILE));
    EXPECT_EQ(project.TakeOutput(), "Loading layouts from \"res\\screens.xml\"...\r\n");
    EXPECT_EQ(Titles(), QStringList({u"ID_NEW"_s, u"ID_B"_s}));
    EXPECT_EQ(view.selected, folder->subfolders.at(1).get());
    EXPECT_EQ(view.updates, 1);
    EXPECT_EQ(Save(), "");
    EXPECT_EQ(Written(), Elements(NAMED));

    const QByteArray whole = project.folder.Get(FILE);
    project.folder.Put(FILE, whole.first(whole.size() / 2));
    EXPECT_THROW(doc->OnWatchedFileChanged(Handle(FILE)), ArchiveException);
    EXPECT_EQ(Titles(), QStringList({u"ID_NEW"_s, u"ID_B"_s})) << "the open layout stays";
    EXPECT_TRUE(Save(-3).contains("failed to write"));
    project.folder.Put(FILE, whole);
    doc->OnWatchedFileChanged(Handle(FILE));
    EXPECT_EQ(Save(), "");

    // The reload doesn't affect a layout with that name in another resolution.
    CResFolder *const other = doc->root.FindFolder(KIND_RESO_LAYOUTS, 0, 2);
    other->AddFolder(doc->CreateFolder(KIND_LAYOUT, 0));
    view.selected = other->subfolders.front().get();
    view.selected->title = u"ID_B"_s;
    doc->OnWatchedFileChanged(Handle(FILE));
    EXPECT_EQ(view.selected, other->subfolders.front().get());

    // The new list doesn't name the file, so it is no longer watched.
    const quint32 handle = Handle(FILE);
    project.folder.Put(LIST, List(QByteArray()));
    doc->OnWatchedFileChanged(Handle(LIST));
    EXPECT_EQ(Handle(FILE), 0U);
    doc->OnWatchedFileChanged(handle);
    EXPECT_TRUE(doc->root.FindFolder(KIND_RESO_LAYOUTS, 1, 2)->subfolders.empty());
    doc->RemoveView(&view);
}

TEST_F(Layouts, ReportAnElementWithoutAFileAndACatalogueWithErrors)
{
    project.folder.Put(LIST, List("<LAYOUT/><IMAGE id=\"ID_A\"/>"));
    UseCatalogue("<catalogue version=\"1\">\n<class/></catalogue>");
    Open();
    const QByteArray said = project.TakeOutput();
    EXPECT_TRUE(said.contains("Warning 1: layout file not found.\r\n"));
    EXPECT_TRUE(said.contains("Warning 1: unknown XML tag [IMAGE] discarded (Line 3).\r\n"));
    EXPECT_TRUE(said.contains("line 2")) << said.constData();
    EXPECT_TRUE(project.Open()->classes->entries.empty());
    EXPECT_EQ(Save(), "");
    EXPECT_EQ(Written(), Elements({}));
}
