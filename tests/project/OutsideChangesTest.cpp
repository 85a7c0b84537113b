// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "KeptFiles.h"
#include "Leftovers.h"
#include "ProjectLock.h"
#include "ProjectSave.h"
#include "SaveJournal.h"
#include "TestProject.h"

#include <gmock/gmock.h>

#include <QFile>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace
{

/// An open project whose files another program changes, and the document's messages about that.
class OutsideChanges : public testing::Test
{
protected:
    OutsideChanges()
    {
        project.folder.Put(STRINGS, TestProject::StringTable({"ID_HELLO"}));
        project.env->explain = [this](const QString &text) { explained += text.toStdString() + '\n'; };
        project.services.Notify = [this](const CResDoc &, const QString &text) { notice += text.toStdString(); };
        doc = project.Open();
        (void)project.TakeOutput();
    }

    void ChangeOutside() { project.folder.Put(STRINGS, TestProject::StringTable({"ID_HELLO", "ID_OUTSIDE"})); }
    void ChangeHere() { doc->root.FindFolder(KIND_BINARY, 2)->resources.First()->Rename(doc->ids, "ID_HERE"); }
    [[nodiscard]] std::vector<KeptFiles::Entry> Kept() const { return KeptFiles(project.Path()).Entries(); }
    [[nodiscard]] bool FileHas(const char *file, const char16_t *id) const
    {
        const QByteArray bytes = project.folder.Get(file);
        return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes.constData()), bytes.size() / 2)
            .contains(QStringView(id));
    }

    static constexpr const char *LIST = "demo/res/demo.res.xml";
    static constexpr const char *STRINGS = "demo/res/ref_list_demo.txt";
    TestProject project{"<APP><FILE id=\"ID_A\"/><STRING>res\\ref_list_demo.txt</STRING></APP>"};
    CResDoc *doc = nullptr;
    std::string explained;
    std::string notice;
};

/// Changes files between two steps of the document, as another program does.
struct Meddler : FakeMonitor
{
    quint32 AddFile(const QString &path, CDocument *document) override
    {
        if (whenRead)
            whenRead(path);
        return FakeMonitor::AddFile(path, document);
    }
    std::function<void(const QString &path)> whenRead;
};

} // namespace

TEST_F(OutsideChanges, IncludeFileTypesInTheSettings)
{
    project.folder.Put(LIST, "<APP><FILE id=\"ID_A\" type=\"Push\">a.ogg</FILE></APP>");
    project.folder.Put("demo/a.ogg", "");
    EXPECT_EQ(project.Open(), doc);
    EXPECT_FALSE(doc->root.FindFolder(KIND_BINARY, 2)->resources.IsEmpty());
    project.folder.Put("bin/Morvanite.ini", project.folder.Get("bin/Morvanite.ini") + "\n[FileType]\naudio=*.ogg\n");
    EXPECT_EQ(project.Open(), doc);
    EXPECT_FALSE(doc->root.FindFolder(KIND_AUDIO, 2)->resources.IsEmpty());
    EXPECT_THAT(explained, HasSubstr("The file types in the settings have changed"));
}

TEST_F(OutsideChanges, AreLoadedBeforeTheDocumentIsUsedAgain)
{
    CountingView view;
    doc->AddView(&view);
    ChangeOutside();
    EXPECT_EQ(project.Open(), doc);
    EXPECT_NE(doc->ids.FindName("ID_OUTSIDE"), nullptr);
    EXPECT_EQ(view.updates, 1);
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::None) << "once is enough";

    project.folder.Put(STRINGS, TestProject::StringTable({"ID_THIRD"}));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(FileHas(STRINGS, u"ID_THIRD"));
    EXPECT_FALSE(FileHas(STRINGS, u"ID_OUTSIDE"));
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::None) << "files written by a save are not changes";
    EXPECT_TRUE(Kept().empty());
    EXPECT_EQ(notice, "");
    EXPECT_THAT(explained, HasSubstr("ref_list_demo.txt; it was read again"));
}

TEST_F(OutsideChanges, ReportEachFindingOnce)
{
    std::string codes;
    const Notifier<const Finding &>::Listener listener(
        project.env->found, [&codes](const Finding &finding) { codes += std::string(finding.code) + ' '; });
    project.folder.Put(LIST, "<APP><FILE id=\"ID_A\">gone.png</FILE></APP>");
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::TakenIn);
    EXPECT_EQ(codes, "list.file-missing ") << "findings of the trial load are not repeated";
    project.folder.Put(LIST, "<APP>");
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::Unreadable);
    EXPECT_EQ(codes, "list.file-missing list.malformed ") << "the report has a line about it";
}

TEST_F(OutsideChanges, AreKeptWhenASaveReplacesThem)
{
    ChangeOutside();
    ChangeHere();
    const QByteArray outside = project.folder.Get(STRINGS);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_FALSE(FileHas(STRINGS, u"ID_OUTSIDE"));
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_TRUE(Kept().front().files.contains(project.folder.Path(STRINGS)));
    EXPECT_THAT(notice, HasSubstr("ref_list_demo.txt"));
    EXPECT_THAT(notice, HasSubstr("morvanite/kept/demo-"));

    QString replaced;
    EXPECT_EQ(KeptFiles(project.Path()).Restore(*project.env, 1, replaced), QString());
    EXPECT_EQ(project.folder.Get(STRINGS), outside);
    EXPECT_EQ(Kept().size(), 2U) << "the files replaced by a restore are kept too";

    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_NE(doc->ids.FindName("ID_OUTSIDE"), nullptr) << "the document had no changes any more";
    EXPECT_EQ(Kept().size(), 2U);
}

TEST_F(OutsideChanges, WaitForARunningSave)
{
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        ProjectLock lock;
        (void)!(lock.Take(*project.env, SavedProjectOf(*project.env, project.Path())) && write(ready[1], "x", 1));
        usleep(300'000);
        ChangeOutside();
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_NE(doc->ids.FindName("ID_OUTSIDE"), nullptr);
    EXPECT_TRUE(FileHas(STRINGS, u"ID_OUTSIDE"));
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
}

TEST_F(OutsideChanges, DuringALoadMakeTheDocumentLoadAgain)
{
    Meddler meddler;
    project.documents.CloseAll();
    project.services.watch = &meddler;
    int times = 0;
    int most = 1;
    meddler.whenRead = [&](const QString &path) { // the list and its strings are read, but the load isn't finished
        if (!path.endsWith(u"ref_list_demo.txt") || ++times > most)
            return;
        const QByteArray id = "ID_" + QByteArray::number(times);
        project.folder.Put(STRINGS, TestProject::StringTable({id}));
        project.folder.Put(LIST, "<APP><FILE id=\"ID_F" + id + "\"/><STRING>res\\ref_list_demo.txt</STRING></APP>");
    };
    doc = project.Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_NE(doc->ids.FindName("ID_1"), nullptr);
    EXPECT_NE(doc->ids.FindName("ID_FID_1"), nullptr);
    EXPECT_EQ(doc->ids.FindName("ID_A"), nullptr);
    EXPECT_EQ(times, 2);
    EXPECT_THAT(explained, HasSubstr("while it was read; the project is read again"));
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::None);

    project.documents.CloseAll();
    times = 0;
    most = 1000;
    EXPECT_EQ(project.Open(), nullptr);
    EXPECT_EQ(times, 5);
    EXPECT_THAT(explained, HasSubstr("keeps changing"));
    most = 0;
    EXPECT_NE(project.Open(), nullptr);
    project.documents.CloseAll();
}

TEST_F(OutsideChanges, ALoadWaitsForASaveThatHasNotRenamedAllFiles)
{
    Meddler meddler;
    project.documents.CloseAll();
    project.services.watch = &meddler;
    bool isSaved = false;
    meddler.whenRead = [&](const QString &path) {
        if (!path.endsWith(u"demo.res.xml") || std::exchange(isSaved, true))
            return;
        const pid_t child = fork();
        if (child == 0) {
            const QByteArray place = project.folder.Path(STRINGS).toUtf8();
            QFile made(QString::fromUtf8(TemporaryName(place, getpid(), 0)));
            SaveJournal journal;
            const bool isReady =
                made.open(QIODevice::WriteOnly) && made.write(TestProject::StringTable({"ID_SAVED"})) > 0 &&
                made.flush() &&
                journal.Begin(*project.env, SavedProjectOf(*project.env, project.Path()), {{place, 0, false}}) == 0;
            _exit(isReady ? 0 : 1); // as if killed there
        }
        int status = -1;
        EXPECT_TRUE(waitpid(child, &status, 0) == child && status == 0);
    };
    doc = project.Open();
    ASSERT_NE(doc, nullptr);
    EXPECT_NE(doc->ids.FindName("ID_SAVED"), nullptr);
    EXPECT_FALSE(project.folder.Has("demo/res/.demo.journal"));
    project.documents.CloseAll();
}

TEST_F(OutsideChanges, DuringASaveMakeItFail)
{
    bool meddles = true;
    project.env->trace = [&](QStringView) { // called by the numbering of the IDs
        if (std::exchange(meddles, false))
            ChangeOutside();
    };
    const std::map<quint32, QString> watched = project.monitor.watched;
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_NE(doc->lastSave.write, 0);
    EXPECT_EQ(project.monitor.watched, watched) << "the other program's change is not loaded yet";
    EXPECT_TRUE(FileHas(STRINGS, u"ID_OUTSIDE"));
    EXPECT_THAT(explained, HasSubstr("ref_list_demo.txt while the project was saved, so nothing was written"));
    ChangeHere();
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(doc->lastSave.write, 0);
    EXPECT_EQ(Kept().size(), 1U);
    project.documents.CloseAll();
}

TEST_F(OutsideChanges, BetweenTheTrialLoadAndTheReloadAreLoadedLater)
{
    const QByteArray sound = project.folder.Get(LIST);
    bool meddles = true;
    project.env->explain = [&](const QString &) {
        if (std::exchange(meddles, false))
            project.folder.Put(LIST, "<APP>");
    };
    ChangeOutside();
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::Unreadable);
    EXPECT_TRUE(doc->IsUnreadable());
    EXPECT_FALSE(doc->IsModified()) << "a server may close it";
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::Unreadable);
    doc->SetModifiedFlag(true); // whatever the user does with the rest of the project
    project.folder.Put(LIST, sound);
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::TakenIn);
    EXPECT_FALSE(doc->IsUnreadable());
    EXPECT_NE(doc->ids.FindName("ID_OUTSIDE"), nullptr);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(doc->lastSave.write, 0);
}

TEST_F(OutsideChanges, AreLoadedAfterAFailedSaveOfAnUneditedProject)
{
    (void)WithFileLimit(0, [&] { return doc->DoFileSave(); });
    EXPECT_NE(doc->lastSave.write, 0);
    ChangeOutside();
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::TakenIn);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(FileHas(STRINGS, u"ID_OUTSIDE"));
}

TEST_F(OutsideChanges, ToTheListWithRemovedStringsAreNotOverwritten)
{
    const QByteArray edited = project.folder.Get(LIST).replace("ID_A", "ID_EDITED");
    project.folder.Put(LIST, edited);
    QFile::remove(project.folder.Path(STRINGS));
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::Unreadable);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_NE(doc->lastSave.write, 0);
    EXPECT_EQ(project.folder.Get(LIST), edited);
    EXPECT_FALSE(doc->IsModified());
}

TEST_F(OutsideChanges, ThatCannotBeReadAreNeitherLoadedNorOverwritten)
{
    const QByteArray broken = "<APP>\n<<<<<<< HEAD\n";
    project.folder.Put(LIST, broken);
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::Unreadable);
    EXPECT_NE(doc->ids.FindName("ID_A"), nullptr) << "the document is as it was";
    EXPECT_THAT(project.TakeOutput(), HasSubstr("Fatal error: invalid resource format"));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(doc->lastSave.write, -3);
    EXPECT_THAT(project.TakeOutput(), HasSubstr("Error 1: failed to write to file"));
    EXPECT_EQ(project.folder.Get(LIST), broken);

    ChangeHere(); // the document now has content of its own
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(doc->lastSave.write, 0);
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_TRUE(Kept().front().files.contains(project.folder.Path(LIST)));
}

TEST_F(OutsideChanges, ThatRemoveAFileAreLoadedOnlyIfTheProjectIsCompleteWithoutIt)
{
    QFile::remove(project.folder.Path(LIST));
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::Gone);
    EXPECT_TRUE(doc->IsUnreadable()) << "nothing may be packed";
    EXPECT_EQ(project.TakeOutput(), "") << "a save has no lines of an opening";
    EXPECT_THAT(explained, HasSubstr("removed"));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(project.folder.Get(LIST).contains("ID_A"));
    project.folder.Put(LIST, "<APP><FILE id=\"ID_ALONE\"/></APP>");
    QFile::remove(project.folder.Path(STRINGS));
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::TakenIn);
    EXPECT_EQ(NamesIn(*doc->root.FindFolder(KIND_BINARY, 2)), "ID_ALONE");
    ASSERT_TRUE(QDir().rename(project.folder.Path("demo"), project.folder.Path("away")));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(doc->IsModified()) << "the open document may be the only copy";
}

TEST_F(OutsideChanges, TheFirstSaveAfterAnOpeningWithErrorsKeepsTheReplacedFiles)
{
    project.documents.CloseAll();
    project.folder.Put(LIST, "<APP><FILE/><FILE id=\"ID_A\"/><STRING>res\\ref_list_demo.txt</STRING></APP>");
    doc = project.Open();
    const QByteArray before = project.folder.Get(LIST);
    qputenv("XDG_STATE_HOME", "/dev/null");
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(doc->lastSave.write, -3) << "a file that can't be kept isn't replaced";
    EXPECT_EQ(project.folder.Get(LIST), before);
    EXPECT_THAT(explained, HasSubstr("/dev/null/morvanite/kept"));
    qputenv("XDG_STATE_HOME", project.folder.Path("state").toUtf8());
    EXPECT_TRUE(doc->DoFileSave());
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_THAT(notice, HasSubstr("reported 1 error"));
    ChangeHere();
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(Kept().size(), 1U) << "only the first save replaces unread content";
}

TEST(KeptFiles, KeepTheNewestTwentyOfAProjectReadableOnlyByTheUser)
{
    TestProgram program;
    const KeptFiles kept(program.folder.Path("demo.vcproj"));
    const QString file = program.folder.Path("demo.txt");
    QString entry;
    for (int i = 0; i < 23; ++i) {
        program.folder.Put("demo.txt", QByteArray::number(i));
        EXPECT_EQ(kept.Keep({file, program.folder.Path("missing.txt")}, entry), QString());
    }
    EXPECT_EQ(kept.Entries().size(), 20U);
    EXPECT_EQ(kept.Entries().front().number, 4);
    QString replaced;
    EXPECT_EQ(kept.Restore(*program.env, 4, replaced), QString()) << "although keeping what it replaces removes it";
    EXPECT_EQ(program.folder.Get("demo.txt"), "3");
    EXPECT_NE(kept.Restore(*program.env, 4, replaced), QString());
    EXPECT_EQ(QFileInfo(replaced).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther),
              QFile::Permissions());
    EXPECT_TRUE(KeptFiles(program.folder.Path("other/demo.vcproj")).Entries().empty())
        << "the title alone isn't enough";
    QString nothing;
    EXPECT_EQ(kept.Keep({program.folder.Path("missing.txt")}, nothing), QString());
    EXPECT_EQ(nothing, QString());
}

TEST(KeptFiles, AreRemovedAfterAFailedSaveUnlessItsJournalRemains)
{
    TestProject project;
    const QString list = project.folder.Path("demo/res/demo.res.xml");
    for (const bool hasJournal : {true, false}) {
        KeepOnSave keep;
        keep.Require(u"Why."_s);
        EXPECT_EQ(keep.Keep(project.Path(), {list}), QString());
        const std::string notice = keep.Finish(false, hasJournal).toStdString();
        EXPECT_EQ(notice.find("morvanite/kept/demo-") != std::string::npos, hasJournal) << notice;
        EXPECT_TRUE(keep.IsRequired());
        EXPECT_EQ(KeptFiles(project.Path()).Entries().size(), 1U) << "the first one's";
    }
    EXPECT_FALSE(HasJournal(*project.env, project.Path()));
    project.folder.Put("demo/res/.demo.journal", "");
    EXPECT_TRUE(HasJournal(*project.env, project.Path()));
}

TEST(KeptFiles, AreKeptForEachWayToLeaveSomethingOutAtAnOpening)
{
    struct Way
    {
        const char *what;
        QByteArray list;
        const char *settings = "";
        const char *strings = "ID_HELLO\tNormal\tabout\tHello\tAllô\r\n";
    };
    const QByteArray string = "<STRING>res\\ref_list_demo.txt</STRING>";
    const QByteArray layout = "<RESOLUTION width=\"240\" height=\"320\" class=\"layout\"><LAYOUT>res\\l.xml</LAYOUT>"
                              "</RESOLUTION>";
    const QByteArray picture =
        "<RESOLUTION width=\"240\" height=\"320\" class=\"image\"><IMAGE id=\"ID_P\">p.png</IMAGE>"
        "</RESOLUTION>";
    const Way ways[] = {
        {"a file without an ID", "<FILE>lost.bin</FILE>" + string},
        {"a picture without an ID", "<IMAGE>lost.png</IMAGE>"},
        {"an unknown element", "<SOUND id=\"ID_S\">lost.wav</SOUND>"},
        {"an unknown element of a screen", layout},
        {"an ID twice", "<IMAGE id=\"ID_A\">a.png</IMAGE><IMAGE id=\"ID_A\">lost.png</IMAGE>"},
        {"a picture and a string with one ID", "<IMAGE id=\"ID_HELLO\">a.png</IMAGE>" + string},
        {"a screen without a size", "<RESOLUTION class=\"image\"><IMAGE id=\"ID_P\">p.png</IMAGE></RESOLUTION>"},
        {"a screen that isn't listed",
         "<RESOLUTION width=\"7\" height=\"9\" class=\"image\"><IMAGE id=\"ID_P\">p.png</IMAGE></RESOLUTION>"},
        {"a list of screens that isn't there", picture, "reso_set=missing.ini\n"},
        {"an unknown component", "<COMPONENT id=\"radio\"><IMAGE id=\"ID_P\">p.png</IMAGE></COMPONENT>"},
        {"a component without an ID", "<COMPONENT><IMAGE id=\"ID_P\">p.png</IMAGE></COMPONENT>"},
        {"a layout without a file", "<RESOLUTION width=\"240\" height=\"320\" class=\"layout\"><LAYOUT/></RESOLUTION>",
         "[Layout]\nfolders=1\n"},
        {"more fields than languages", string, "", "ID_HELLO\tNormal\tabout\tHello\tAllô\tlost\r\n"},
        {"a text of a row that has none before", string, "",
         "ID_HELLO\tNormal\tabout\tHello\tAllô\r\nID_HELLO\tNormal\tabout\tlost\t\r\n"},
        {"a text of no string file", "<STRING/>"},
        {"a string file that the list doesn't name", "<FILE id=\"ID_F\">a.bin</FILE>"},
        {"an element in one that has only a text", "<FILE id=\"ID_F\">a.bin<NOTE>lost</NOTE></FILE>" + string},
        {"a second list", "</APP><APP><FILE id=\"ID_F\">lost.bin</FILE>"},
        {"a character that the code page lacks", "<FILE id=\"ID_F\">\u4E2D.bin</FILE>", "[Text]\ncode_page=1252\n"},
    };
    for (const Way &way : ways) {
        SCOPED_TRACE(way.what);
        TestProject project("<APP>" + way.list + "</APP>");
        project.folder.Put("bin/Morvanite.ini", "[Path]\nreso_set=sizes.ini\n" + QByteArray(way.settings));
        if (QByteArray(way.settings).startsWith("reso_set"))
            project.folder.Put("bin/Morvanite.ini", "[Path]\n" + QByteArray(way.settings));
        project.env->RefreshSettings();
        const QString text = u"\uFEFFNumber of Language\t2\r\nString ID\tResource Type\tDescription\tEnglish(0)\t"
                             "Français(1)\r\n"_s +
                             QString::fromUtf8(way.strings) + u"##number\t1\r\n"_s;
        const QByteArray table(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
        const bool hasTable = way.list.contains(string) || way.list.startsWith("<FILE id=\"ID_F\">a.bin</FILE>");
        if (hasTable)
            project.folder.Put("demo/res/ref_list_demo.txt", table);
        const bool isUtf8 = QByteArray(way.settings).contains("code_page"); // independent of the project's code page
        const QByteArray list = (isUtf8 ? "\xEF\xBB\xBF" : "") + project.folder.Get("demo/res/demo.res.xml");
        project.folder.Put("demo/res/demo.res.xml", list);
        CResDoc *const doc = project.Open();
        ASSERT_NE(doc, nullptr);
        EXPECT_TRUE(doc->DoFileSave());
        EXPECT_EQ(doc->lastSave.write, 0);
        EXPECT_NE(project.folder.Get("demo/res/demo.res.xml"), list) << "otherwise the test checks nothing";
        const std::vector<KeptFiles::Entry> kept = KeptFiles(project.Path()).Entries();
        ASSERT_EQ(kept.size(), 1U);
        QString replaced;
        EXPECT_EQ(KeptFiles(project.Path()).Restore(*project.env, 1, replaced), QString());
        EXPECT_EQ(project.folder.Get("demo/res/demo.res.xml"), list);
        EXPECT_TRUE(!hasTable || project.folder.Get("demo/res/ref_list_demo.txt") == table);
    }
}
