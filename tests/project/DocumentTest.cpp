// SPDX-License-Identifier: MIT
#include "TestProject.h"

using namespace Qt::StringLiterals;

namespace
{

/// An open project with a file and a text, and the handles of its files at the file monitor.
class ResDoc : public testing::Test
{
protected:
    ResDoc()
    {
        project.folder.Put(STRINGS, TestProject::StringTable({"ID_HELLO"}));
        doc = project.Open();
        doc->AddView(&projView);
        doc->selection = &projView;
        doc->AddView(&other);
    }

    [[nodiscard]] quint32 Handle(const char *name) const { return project.monitor.HandleOf(project.folder.Path(name)); }
    [[nodiscard]] CResFolder &Files() const { return *doc->root.FindFolder(KIND_BINARY, 2); }

    static constexpr const char *LIST = "demo/res/demo.res.xml";
    static constexpr const char *STRINGS = "demo/res/ref_list_demo.txt";
    TestProject project{"<APP><FILE id=\"ID_A\"/><IMAGE id=\"ID_B\"/><STRING>res\\ref_list_demo.txt</STRING></APP>"};
    CResDoc *doc;
    CountingView projView;
    CountingView other;
};

} // namespace

TEST_F(ResDoc, IsModifiedByAnyChangeOfItsTreeUntilItIsSaved)
{
    auto *const file = static_cast<CFileRes *>(Files().resources.First());
    const auto changes = [&](const auto &change) {
        EXPECT_TRUE(doc->DoFileSave());
        EXPECT_FALSE(doc->IsModified());
        change();
        return doc->IsModified();
    };
    EXPECT_TRUE(changes([&] { file->SetPath("b.wav"); }));
    EXPECT_FALSE(changes([&] { file->SetPath("b.wav"); }));
    EXPECT_TRUE(changes([&] { file->Rename(doc->ids, "ID_C"); }));
    EXPECT_FALSE(changes([&] { file->Rename(doc->ids, "ID_B"); })) << "the name is taken";
    EXPECT_TRUE(changes([&] { Files().DeleteResource(file); })) << "seen through the resource";
    EXPECT_TRUE(changes([&] { doc->UseResolutionImages(0); }));
    EXPECT_FALSE(changes([&] { doc->UseResolutionImages(0); }));
    EXPECT_FALSE(changes([&] { doc->GenerateIds(nullptr); })) << "numbers aren't part of the project";
    EXPECT_FALSE(doc->OnNewDocument());
    EXPECT_TRUE(project.user.boxes.isEmpty());
}

TEST_F(ResDoc, StaysModifiedAndWritesNoHeaderWhenTheSaveFails)
{
    const auto expectFailure = [&](const QByteArray &message, int code) {
        (void)project.TakeOutput();
        doc->SetModifiedFlag(true);
        EXPECT_TRUE(doc->DoFileSave()) << "the framework hears of success either way";
        EXPECT_EQ(project.TakeOutput(), "Error 1: " + message + ".\r\n[demo] save - 1 error(s), 0 warning(s)\r\n");
        EXPECT_TRUE(doc->IsModified());
        EXPECT_EQ(doc->lastSave.write, code);
        EXPECT_EQ(project.folder.Names("demo/ResID"), QStringList());
    };
    QFile::remove(project.folder.Path(LIST));
    project.folder.MakeFolder(LIST);
    expectFailure("failed to write to file \"res\\demo.res.xml\"", -3);
    EXPECT_EQ(project.user.boxes, QStringList({u"Failed to save the resources."_s}));
    ASSERT_TRUE(QDir().rename(project.folder.Path("demo/res"), project.folder.Path("demo/away")));
    project.command = 2;
    expectFailure("failed to open file \"res\\ref_list_demo.txt\"", 110);
    EXPECT_EQ(project.user.boxes.size(), 1) << "a command shows no box";
}

TEST_F(ResDoc, SavesTheProjectAndReportsAnOverflowOfTheNumbers)
{
    QByteArray resources;
    for (int i = 0; i <= 1000; ++i)
        resources += "<FILE id=\"ID_" + QByteArray::number(i) + "\" type=\"Push\">a.wav</FILE>";
    project.folder.Put(LIST, "<APP>" + resources + "</APP>");
    doc->OnWatchedFileChanged(Handle(LIST));
    doc->SetModifiedFlag(true);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(project.user.boxes, QStringList({u"Failed to generate header files."_s}));
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(doc->lastSave.generate, -2);
    EXPECT_EQ(doc->lastSave.write, 0);
    EXPECT_FALSE(project.folder.Has("demo/ResID"));
    EXPECT_TRUE(project.folder.Get(LIST).startsWith("<APP id=\"APP_demo\">\n"));
}

TEST_F(ResDoc, AChangedListReplacesTheTreeAndDiscardsLocalChanges)
{
    Files().resources.First()->Rename(doc->ids, "ID_LOCAL");
    project.folder.Put(LIST, "<APP><FILE id=\"ID_NEW\"/></APP>");
    doc->OnWatchedFileChanged(Handle(LIST));
    EXPECT_EQ(NamesIn(Files()), "ID_NEW");
    EXPECT_EQ(doc->ids.FindName("ID_LOCAL"), nullptr);
    EXPECT_EQ(doc->root.subfolders.size(), 3U);
    EXPECT_FALSE(doc->IsModified());
    EXPECT_TRUE(other.updates == 1 && projView.updates == 1);
    Files().resources.First()->Rename(doc->ids, "ID_LOCAL");
    EXPECT_TRUE(doc->IsModified()) << "the new nodes are watched too";
    project.folder.Put(LIST, "<APP>"); // another program is writing the file
    EXPECT_THROW(doc->OnWatchedFileChanged(Handle(LIST)), ArchiveException);
    EXPECT_EQ(NamesIn(Files()), "ID_LOCAL");
    EXPECT_TRUE(doc->IsModified() && doc->IsUnreadable());
    (void)project.TakeOutput();
    EXPECT_TRUE(doc->DoFileSave() && doc->lastSave.write != 0);
    EXPECT_TRUE(project.TakeOutput().contains("Error 1: failed to write to file"));
    EXPECT_EQ(project.folder.Get(LIST), "<APP>") << "older content replaces nothing";
    project.folder.Put(LIST, "<APP><FILE id=\"ID_AGAIN\"/></APP>");
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::TakenIn) << "once the file is repaired";
    EXPECT_EQ(NamesIn(Files()), "ID_AGAIN");
    EXPECT_FALSE(doc->IsUnreadable() || doc->IsModified());
}

TEST_F(ResDoc, AChangedConfigurationReplacesTheTreeToo)
{
    const QByteArray whole = project.folder.Get("demo/config.xml");
    EXPECT_EQ(doc->WatchedClass(Handle("demo/config.xml")), WATCH_CONFIGURATION);
    QString explained;
    project.env->explain = [&](const QString &text) { explained += text + u'\n'; };
    project.folder.Put("demo/config.xml", whole.first(whole.size() / 2));
    EXPECT_THROW(doc->OnWatchedFileChanged(Handle("demo/config.xml")), ArchiveException);
    EXPECT_TRUE(explained.contains(u"config.xml"_s)) << "which file it is";
    EXPECT_TRUE(explained.contains(u"\nThe project "_s + doc->m_strPathName + u" can't be read again"_s));
    project.env->explain = nullptr;
    const quint32 handle = Handle("demo/config.xml");
    project.folder.Put("demo/config.xml", whole);
    doc->OnWatchedFileChanged(handle);
    EXPECT_FALSE(doc->IsUnreadable());
    EXPECT_GT(Handle("demo/config.xml"), handle) << "a late notice asks nothing";
    EXPECT_FALSE(doc->WatchedClass(handle));
}

TEST_F(ResDoc, AChangedStringFileUpdatesTheStrings)
{
    project.folder.Put(STRINGS, TestProject::StringTable({"ID_HELLO", "ID_BYE"}));
    doc->OnWatchedFileChanged(Handle(STRINGS));
    EXPECT_NE(doc->ids.FindName("ID_BYE"), nullptr);
    EXPECT_EQ(other.updates, 0) << "some other folder is selected";
    projView.selected = doc->root.FindFolder(KIND_STRINGS, 1);
    doc->OnWatchedFileChanged(Handle(STRINGS));
    EXPECT_EQ(other.updates, 1);
    EXPECT_EQ(projView.updates, 0) << "it is the sender";
    const QByteArray whole = project.folder.Get(STRINGS);
    const QByteArray half = whole.first(whole.size() / 2);
    project.folder.Put(STRINGS, half);
    EXPECT_THROW(doc->OnWatchedFileChanged(Handle(STRINGS)), ArchiveException);
    EXPECT_TRUE(doc->IsUnreadable()) << "nothing may be packed";
    EXPECT_NE(doc->ids.FindName("ID_BYE"), nullptr);
    EXPECT_TRUE(doc->DoFileSave() && doc->lastSave.write != 0);
    EXPECT_EQ(project.folder.Get(STRINGS), half);
    project.folder.Put(STRINGS, whole);
    projView.selected = nullptr; // the whole tree is replaced
    doc->OnWatchedFileChanged(Handle(STRINGS));
    EXPECT_TRUE(doc->DoFileSave() && doc->lastSave.write == 0);
    QFile::remove(project.folder.Path(STRINGS));
    EXPECT_THROW(doc->OnWatchedFileChanged(Handle(STRINGS)), ArchiveException);
}

TEST_F(ResDoc, WatchesItsFilesWhileItIsOpenButNotItsOwnWriting)
{
    const quint32 handles[] = {0, Handle(LIST), Handle(STRINGS)};
    using Flags = std::pair<qint32 *, qint32 *>; // the flag of the file, and that of its type
    EXPECT_EQ(project.monitor.flags[Handle(LIST)], Flags(&project.flags.resources, nullptr));
    EXPECT_EQ(project.monitor.flags[Handle(STRINGS)], Flags(&project.flags.strings, nullptr));
    QDir::setCurrent(u"/"_s);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(QDir::currentPath(), project.folder.Path("demo"));
    EXPECT_EQ(project.monitor.watched.size(), 3U);
    EXPECT_TRUE(Handle(LIST) > 2 && Handle(STRINGS) > 2);
    for (const quint32 handle : handles)
        doc->OnWatchedFileChanged(handle); // unknown handles, and handles of files that are no longer watched
    EXPECT_EQ(projView.updates, 0);
    EXPECT_EQ(doc->ProjectFiles(), QStringList({project.folder.Path("demo/config.xml"), project.folder.Path(LIST),
                                                project.folder.Path(STRINGS)}));

    const QString layout = project.folder.Path("demo/res/layout.xml");
    doc->WatchFile(layout, WATCH_LAYOUT);
    doc->WatchFile(layout, WATCH_LAYOUT);
    EXPECT_EQ(project.monitor.flags[project.monitor.HandleOf(layout)].first, &project.flags.layouts[layout]);
    doc->UnwatchFile(u"unknown"_s, WATCH_LAYOUT);
    EXPECT_EQ(project.monitor.watched.size(), 4U);
    doc->UnwatchFile(layout, WATCH_LAYOUT);
    EXPECT_EQ(project.monitor.HandleOf(layout), 0U);
    project.documents.CloseAll();
    EXPECT_TRUE(project.monitor.watched.empty());
    EXPECT_EQ(QDir::currentPath(), project.folder.Path("bin"));
}

TEST(FileDialog, OffersTheFileTypesOfTheMask)
{
    TestProject project("<APP/>", "[FileType]\naudio=*.wav\n");
    CResDoc &doc = *project.Open();
    project.user.answer = {u"C:\\\\a.png"_s, u"/home/b.png"_s};
    QStringList results{u"kept"_s};
    doc.ChooseFiles(KIND_FILES, true, u".\\res\\start.wav"_s, results);
    EXPECT_EQ(project.user.lastFilter,
              u"Audio Files (*.wav)|*.wav|"
              "Video Files (*.avi; *.asf; *.wmv; *.3gp; *.rm; *.rmvb)|*.avi; *.asf; *.wmv; *.3gp; *.rm; *.rmvb|"
              "All Files (*.*)|*.*||"_s);
    EXPECT_EQ(project.user.lastSelected, 3);
    EXPECT_TRUE(project.user.lastMulti);
    EXPECT_EQ(project.user.lastInitial, project.folder.Path("demo/res/start.wav"));
    EXPECT_EQ(results, QStringList({u"kept"_s, u"C:\\a.png"_s, u"/home/b.png"_s}));

    doc.ChooseFiles(KIND_RESO_IMAGES, false, QString(3000, u'x'), results);
    EXPECT_EQ(project.user.lastFilter, u"Image Files (*.bmp; *.png; *.gif; *.jpg)|*.bmp; *.png; *.gif; *.jpg||"_s);
    EXPECT_EQ(project.user.lastInitial, QString()) << "a name that doesn't fit isn't offered";
    doc.ChooseFiles(KIND_STRINGS, false, QString(), results);
    EXPECT_EQ(results.size(), 5) << "without a kind of file there is no dialog";
}
