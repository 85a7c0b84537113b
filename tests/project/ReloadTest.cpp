#include "TestProject.h"

using namespace Qt::StringLiterals;

namespace
{

class FakeView : public CView
{
public:
    void OnUpdate(CView *, long, CView *) override { ++updates; }
    int updates = 0;
};

class FakeProjView : public IProjView
{
public:
    void OnUpdate(CView *, long, CView *) override { ++updates; }
    [[nodiscard]] CResFolder *SelectedFolder() const override { return selected; }
    CResFolder *selected = nullptr;
    int updates = 0;
};

class Reload : public testing::Test
{
protected:
    Reload()
    {
        project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO"}));
        doc = project.Open();
        doc->AddView(&view);
        doc->AddView(&projView);
    }

    [[nodiscard]] quint32 Handle(const char *name) const { return project.monitor.HandleOf(project.folder.Path(name)); }

    TestProject project{"<APP><FILE id=\"ID_A\"/><STRING>res\\ref_list_demo.txt</STRING></APP>"};
    CResDoc *doc;
    FakeView view;
    FakeProjView projView;
};

} // namespace

TEST_F(Reload, AChangedListReplacesTheTreeAndLocalChangesAreGone)
{
    doc->root.FindFolder(KIND_BINARY, 2)->resources.First()->Rename(doc->ids, "ID_LOCAL");
    EXPECT_TRUE(doc->IsModified());
    project.folder.Put("demo/res/demo.res.xml", "<APP><FILE id=\"ID_B\"/></APP>");
    const quint32 handle = Handle("demo/res/demo.res.xml");
    doc->OnWatchedFileChanged(handle);
    EXPECT_EQ(NamesIn(*doc->root.FindFolder(KIND_BINARY, 2)), "ID_B");
    EXPECT_EQ(doc->ids.FindName("ID_LOCAL"), nullptr);
    EXPECT_EQ(doc->root.subfolders.size(), 3U);
    EXPECT_FALSE(doc->IsModified());
    EXPECT_EQ(view.updates, 1);
    EXPECT_EQ(projView.updates, 1);
    EXPECT_NE(Handle("demo/res/demo.res.xml"), 0U);
    doc->root.FindFolder(KIND_BINARY, 2)->Clear();
    EXPECT_TRUE(doc->IsModified()) << "the new nodes are watched too";
}

TEST_F(Reload, AListThatNoLongerLoadsIsAnException)
{
    project.folder.Put("demo/res/demo.res.xml", "<APP>");
    try {
        doc->OnWatchedFileChanged(Handle("demo/res/demo.res.xml"));
        ADD_FAILURE() << "it loaded";
    } catch (const ArchiveException &exception) {
        EXPECT_EQ(exception.cause, 7);
    }
}

TEST_F(Reload, AChangedStringFileIsReadAgainAndShownWhereStringsAre)
{
    const quint32 handle = Handle("demo/res/ref_list_demo.txt");
    project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable({"ID_HELLO", "ID_BYE"}));
    doc->OnWatchedFileChanged(handle);
    EXPECT_NE(doc->ids.FindName("ID_BYE"), nullptr);
    EXPECT_EQ(view.updates, 0) << "some other folder is selected";
    projView.selected = doc->root.FindFolder(KIND_STRINGS, 1);
    doc->OnWatchedFileChanged(handle);
    EXPECT_EQ(view.updates, 1);
    EXPECT_EQ(projView.updates, 0) << "it is the sender";
    QFile::remove(project.folder.Path("demo/res/ref_list_demo.txt"));
    EXPECT_THROW(doc->OnWatchedFileChanged(handle), ArchiveException);
}

TEST_F(Reload, ASaveDoesNotWatchItsOwnWritingAndWatchesAgainAfterwards)
{
    const quint32 list = Handle("demo/res/demo.res.xml");
    const quint32 strings = Handle("demo/res/ref_list_demo.txt");
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(project.monitor.watched.size(), 2U);
    EXPECT_NE(Handle("demo/res/demo.res.xml"), list);
    EXPECT_NE(Handle("demo/res/ref_list_demo.txt"), strings);
    doc->OnWatchedFileChanged(list); // a handle of yesterday means nothing
    doc->OnWatchedFileChanged(0);
    EXPECT_EQ(view.updates, 0);
}

TEST_F(Reload, LayoutFilesAreWatchedByPathWithAFlagOfTheirOwn)
{
    const QString path = project.folder.Path("demo/res/layout.xml");
    doc->WatchFile(path, CResDoc::WATCH_LAYOUT);
    doc->WatchFile(path, CResDoc::WATCH_LAYOUT);
    const quint32 handle = project.monitor.HandleOf(path);
    EXPECT_EQ(project.monitor.flags[handle].first, &project.flags.layouts[path]);
    doc->UnwatchFile(u"unknown"_s, CResDoc::WATCH_LAYOUT);
    doc->UnwatchFile(QString(), CResDoc::WATCH_LAYOUT);
    EXPECT_NE(project.monitor.HandleOf(path), 0U);
    doc->UnwatchFile(path, CResDoc::WATCH_LAYOUT);
    EXPECT_EQ(project.monitor.HandleOf(path), 0U);
}
