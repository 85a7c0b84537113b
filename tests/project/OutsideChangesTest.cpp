#include "KeptFiles.h"
#include "TestProject.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace
{

/// An open project whose files another program changes, and what the document says about that.
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

} // namespace

TEST_F(OutsideChanges, AreLoadedBeforeTheDocumentIsUsedAgain)
{
    CountingView view;
    doc->AddView(&view);
    ChangeOutside();
    EXPECT_EQ(project.Open(), doc);
    EXPECT_NE(doc->ids.FindName("ID_OUTSIDE"), nullptr);
    EXPECT_EQ(view.updates, 1);
    project.folder.Put(STRINGS, TestProject::StringTable({"ID_THIRD"}));
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(FileHas(STRINGS, u"ID_THIRD"));
    EXPECT_FALSE(FileHas(STRINGS, u"ID_OUTSIDE"));
    EXPECT_EQ(doc->TakeInChanges(), CResDoc::Outside::None) << "what a save writes is no change";
    EXPECT_TRUE(Kept().empty());
    EXPECT_EQ(notice + explained, "");
}

TEST_F(OutsideChanges, AreKeptWhenASaveReplacesThem)
{
    ChangeOutside();
    ChangeHere();
    const QByteArray outside = project.folder.Get(STRINGS);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_FALSE(FileHas(STRINGS, u"ID_OUTSIDE"));
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_THAT(notice, testing::ContainsRegex("ref_list_demo.txt.*morvanite/kept/demo-"));

    QString replaced;
    EXPECT_EQ(KeptFiles(project.Path()).Restore(1, replaced), QString());
    EXPECT_EQ(project.folder.Get(STRINGS), outside);
    EXPECT_EQ(Kept().size(), 2U) << "what was restored over is kept as well";
}

TEST_F(OutsideChanges, ThatCannotBeReadAreNeitherLoadedNorReplaced)
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

    ChangeHere(); // now there is something that only the document has
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(doc->lastSave.write, 0);
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_TRUE(Kept().front().files.contains(project.folder.Path(LIST)));
}

TEST_F(OutsideChanges, ThatRemoveAFileLeaveTheDocumentAloneUnlessTheProjectIsWholeWithoutIt)
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
}

TEST_F(OutsideChanges, AnOpeningThatReportedAnErrorKeepsWhatTheFirstSaveReplaces)
{
    project.documents.CloseAll();
    project.folder.Put(LIST, "<APP><FILE/><FILE id=\"ID_A\"/><STRING>res\\ref_list_demo.txt</STRING></APP>");
    doc = project.Open();
    const QByteArray before = project.folder.Get(LIST);
    qputenv("XDG_STATE_HOME", "/dev/null");
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(doc->lastSave.write, -3) << "what can't be kept isn't replaced";
    EXPECT_EQ(project.folder.Get(LIST), before);
    EXPECT_THAT(explained, HasSubstr("/dev/null/morvanite/kept"));
    qputenv("XDG_STATE_HOME", project.folder.Path("state").toUtf8());
    EXPECT_TRUE(doc->DoFileSave());
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_THAT(notice, HasSubstr("reported 1 error"));
    ChangeHere();
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_EQ(Kept().size(), 1U) << "only the first save replaces what wasn't read";
}

TEST(KeptFiles, TheNewestTwentyOfAProjectStayAndOnlyTheUserReadsThem)
{
    TestProgram program;
    const KeptFiles kept(program.folder.Path("demo.vcproj"));
    const QString file = program.folder.Path("demo.txt");
    QString entry, replaced;
    for (int i = 0; i < 23; ++i) {
        program.folder.Put("demo.txt", QByteArray::number(i));
        EXPECT_EQ(kept.Keep({file, program.folder.Path("missing.txt")}, entry), QString());
    }
    EXPECT_EQ(kept.Entries().size(), 20U);
    EXPECT_EQ(kept.Entries().front().number, 4);
    EXPECT_EQ(kept.Restore(4, replaced), QString()) << "although keeping what it replaces removes it";
    EXPECT_EQ(program.folder.Get("demo.txt"), "3");
    EXPECT_NE(kept.Restore(4, replaced), QString());
    EXPECT_EQ(QFileInfo(replaced).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther),
              QFile::Permissions());
    EXPECT_TRUE(KeptFiles(program.folder.Path("other/demo.vcproj")).Entries().empty())
        << "the title alone isn't enough";
    EXPECT_EQ(kept.Keep({program.folder.Path("missing.txt")}, entry = QString()) + entry, QString());
}
