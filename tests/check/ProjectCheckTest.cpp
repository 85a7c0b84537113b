// SPDX-License-Identifier: MIT
// Tests the check of an open project without a window.
#include "ProjectCheck.h"
#include "CheckedProject.h"
#include "PictureFiles.h"

#include <QCoreApplication>

#include <atomic>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// Rows with faults of the text rules, and of those that compare rows.
const QByteArray FAULTY = "Number of Language|2\nString ID|Resource Type|Description|English(0)|French(1)\n"
                          "ID_A|Normal||Take %d|Prenez %s\nID_B|Normal||Same|\nID_C|Normal||Again|Encore\n"
                          "ID_D|Normal||Again|Encore\n##number|4\n";

struct OpenProject : CheckedProject
{
    explicit OpenProject(const QByteArray &strings = FAULTY) { PutStrings(strings); }

    ProjectCheck &Begin(CountAlpha count = nullptr)
    {
        document = Open();
        check.emplace(*document, count);
        check->Start();
        return *check;
    }
    [[nodiscard]] CResFolder &Heads() const { return *document->root.FindFolder(KIND_STRINGS, 2)->subfolders.front(); }
    [[nodiscard]] CStringRes &Head(const NarrowText &id) const
    {
        return static_cast<CStringRes &>(*Heads().FindResource(document->ids.FindName(id)));
    }
    void SetText(const NarrowText &id, qint32 language, const QString &text)
    {
        Head(id).FindLanguage(language)->SetText(text);
        check->RowChanged(Head(id));
    }
    void DeleteRow(const NarrowText &id)
    {
        check->RowGoes(Head(id));
        IDRecord *const record = document->ids.FindName(id);
        record->AddRef();
        for (const auto &language : document->root.FindFolder(KIND_STRINGS, 2)->subfolders)
            language->DeleteResource(record);
        record->Release();
    }

    CResDoc *document = nullptr;
    std::optional<ProjectCheck> check;
};

/// The findings without their places, which those of rows lack in a window.
std::vector<std::string> Lines(std::vector<Finding> findings)
{
    std::vector<std::string> lines;
    for (const Finding &finding : findings)
        lines.push_back(u"%1 %2 %3 %4 %5"_s.arg(QLatin1StringView(finding.code))
                            .arg(int(finding.severity))
                            .arg(finding.id)
                            .arg(finding.language)
                            .arg(finding.text)
                            .toStdString());
    std::sort(lines.begin(), lines.end());
    return lines;
}

FindingCounts CountsOf(const std::vector<Finding> &findings)
{
    FindingCounts counts;
    counts.Add(findings);
    return counts;
}

QStringList RulesOf(const std::vector<const Finding *> &findings)
{
    QStringList rules;
    for (const Finding *finding : findings)
        rules << QLatin1StringView(finding->code);
    return rules;
}

std::atomic<bool> isCounting;
std::atomic<bool> mayCount;

/// A CountAlpha that takes until the test allows it to end.
bool CountSlowly(const QByteArray &, PictureBytes, PictureAlpha &)
{
    isCounting = true;
    while (!mayCount)
        std::this_thread::yield();
    return false;
}

} // namespace

TEST(ProjectCheck, FindsWhatTheCommandFindsAndChangesNothing)
{
    OpenProject project;
    project.folder.Put("demo/res/demo.res.xml",
                       "<APP id=\"APP_demo\"><RESOLUTION width=\"240\" height=\"320\" class=\"image\">"
                       "<IMAGE id=\"ID_GONE\">gone.png</IMAGE><IMAGE id=\"ID_BIG\">big.png</IMAGE></RESOLUTION>"
                       "<AUDIO id=\"int\">big.png</AUDIO><STRING>res\\ref_list_demo.txt</STRING></APP>");
    project.folder.Put("demo/big.png", PngFile(500, 20));
    project.folder.Put("demo/main.c", "show(ID_A); show(ID_NONE);");
    project.folder.Put("demo/morvanite-check.ini",
                       "[Check]\nsource=Klingon\nword=1\n[Sources]\nfiles=*.c\n[Ignore]\nid-unused=ID_D\n"
                       "[Severity]\nsame-as-source=off\ntranslation-missing=error\n");
    const std::vector<Finding> expected = project.Check();
    project.documents.CloseAll();
    ProjectCheck &check = project.Begin();
    (void)project.TakeOutput();
    check.Complete();
    EXPECT_EQ(Lines(check.All()), Lines(expected));
    EXPECT_EQ(check.Counts(), CountsOf(expected));
    EXPECT_EQ(project.TakeOutput(), "");
    EXPECT_FALSE(project.document->IsModified());
    for (const Finding &finding : check.All()) {
        if (project.document->ids.FindName(finding.id.toUtf8()) && finding.id.startsWith(u"ID_A"_s)) {
            EXPECT_TRUE(finding.file.isEmpty() && finding.line == 0) << finding.code;
        }
    }
}

TEST(ProjectCheck, ChecksARowAtOnceAndKeepsTheFindingsOfOtherRulesUntilTheNextCheck)
{
    OpenProject project;
    ProjectCheck &check = project.Begin();
    check.Complete();
    int changes = 0;
    const Notifier<>::Listener listener(check.changed, [&changes] { ++changes; });
    EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_A"))), QStringList{u"placeholder-mismatch"_s});
    EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_D"))), QStringList{u"duplicate-text"_s});

    project.SetText("ID_A", 1, u"Prenez %d"_s);
    project.SetText("ID_D", 1, u" Encore"_s);
    EXPECT_EQ(check.OfRow(project.Head("ID_A")), nullptr);
    EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_D"))), (QStringList{u"blank-edge"_s, u"duplicate-text"_s}));
    EXPECT_EQ(check.Counts(), CountsOf(check.All()));
    EXPECT_EQ(changes, 0) << "many rows may change";
    check.Complete();
    EXPECT_EQ(changes, 1);

    check.CheckAgain();
    check.Complete();
    EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_D"))),
              (QStringList{u"blank-edge"_s, u"inconsistent-translation"_s}));
    EXPECT_TRUE(project.Head("ID_D").Rename(project.document->ids, "ID_E")); // its old ID is gone
    check.RowChanged(project.Head("ID_E"));
    EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_E"))), QStringList{u"blank-edge"_s});
    check.Complete();
    EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_E"))),
              (QStringList{u"blank-edge"_s, u"inconsistent-translation"_s}));
    project.DeleteRow("ID_E");
    EXPECT_THAT(Lines(check.All()), ElementsAre("language-unknown 1  1 tuvik.ini doesn't have this language",
                                                "translation-missing 1 ID_B 1 the translation is missing"));
    EXPECT_EQ(check.Counts(), CountsOf(check.All()));
}

TEST(ProjectCheck, IsRightAfterEditsBetweenTheStepsOfACheck)
{
    QByteArray rows = FAULTY.left(FAULTY.indexOf("ID_A"));
    for (int n = 0; n < 20'000; ++n)
        rows += "ID_" + QByteArray::number(n) + "|Normal||Text %d of " + QByteArray::number(n % 9'000) + "|Texte %d\n";
    OpenProject project(rows + "##number|20000\n");
    ProjectCheck &check = project.Begin();
    std::mt19937 random(1);
    int steps = 0;
    for (; check.IsRunning() && steps < 10'000; ++steps) {
        if (!check.Step()) // it waits for its thread
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (project.Heads().resources.Count() < 19'000)
            continue;
        const NarrowText id = "ID_" + NarrowText::number(random() % 20'000);
        if (!project.document->ids.FindName(id))
            continue;
        if (random() % 2)
            project.SetText(id, 1, u"Texte %s"_s);
        else
            project.DeleteRow(id);
        project.DeleteRow(project.Heads().resources.First()->Id()->name); // often the next row to be checked
    }
    EXPECT_FALSE(check.IsRunning());
    EXPECT_GT(steps, 20);
    ProjectCheck other(*project.document, nullptr);
    other.Start();
    other.Complete();
    for (const CBaseRes *res : project.Heads().resources) {
        const auto &head = static_cast<const CStringRes &>(*res);
        const auto *const found = check.OfRow(head);
        const auto *const right = other.OfRow(head);
        ASSERT_EQ(found ? Lines(*found) : std::vector<std::string>(),
                  right ? Lines(*right) : std::vector<std::string>());
    }
    EXPECT_EQ(check.Counts(), CountsOf(check.All()));
}

TEST(ProjectCheck, SurvivesAReloadAtEachStep)
{
    for (int steps = 0; steps < 60; steps += 3) {
        OpenProject project;
        ProjectCheck &check = project.Begin();
        for (int n = 0; n < steps; ++n)
            (void)check.Step();
        project.folder.Put("demo/res/ref_list_demo.txt", StringFileBytes(QByteArray(FAULTY).replace("%s", "%d")));
        ASSERT_EQ(project.document->TakeInChanges(), CResDoc::Outside::TakenIn);
        check.RowChanged(project.Head("ID_A"));
        check.Complete();
        EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_A"))), QStringList());
        EXPECT_EQ(RulesOf(check.AboutRow(project.Head("ID_D"))), QStringList{u"duplicate-text"_s});
    }
}

TEST(ProjectCheck, DoesNothingWhileItIsOffAndFollowsTheSettings)
{
    OpenProject project;
    project.document = project.Open();
    ProjectCheck check(*project.document, nullptr);
    check.FollowSettings();
    check.RowChanged(project.Head("ID_A"));
    check.CheckAgain();
    EXPECT_FALSE(check.IsOn() || check.IsRunning() || check.Step());
    EXPECT_THAT(check.All(), IsEmpty());

    project.folder.Put("demo/morvanite-check.ini", "[Severity]\nplaceholder-mismatch=note\n");
    check.FollowSettings();
    EXPECT_TRUE(check.IsOn());
    check.Complete();
    EXPECT_EQ(check.AboutRow(project.Head("ID_A")).front()->severity, Severity::Note);
    check.FollowSettings();
    EXPECT_FALSE(check.IsRunning()) << "nothing has changed";

    project.folder.Put("demo/morvanite-check.ini", "[Severity]\nplaceholder-mismatch=offf\n");
    check.FollowSettings();
    check.Complete();
    EXPECT_EQ(check.AboutRow(project.Head("ID_A")).front()->severity, Severity::Error);
    EXPECT_THAT(Lines(check.All()), Contains(testing::StartsWith("check-settings 0")));

    QFile::remove(project.folder.Path("demo/morvanite-check.ini"));
    check.FollowSettings();
    EXPECT_FALSE(check.IsOn());
    EXPECT_EQ(check.Counts(), FindingCounts());
    EXPECT_THAT(check.All(), IsEmpty());
    project.folder.Put("demo/morvanite-check.ini", "");
    check.FollowSettings();
    EXPECT_TRUE(check.IsOn());
    check.Start();
    QFile::remove(project.folder.Path("demo/morvanite-check.ini"));
    check.FollowSettings();
    EXPECT_TRUE(check.IsOn()) << "the user has started it";
}

TEST(ProjectCheck, ReadsFilesInAThreadAndEndsWithIt)
{
    for (const bool isStopped : {false, true}) {
        OpenProject project;
        project.folder.Put("demo/res/demo.res.xml", "<APP><IMAGE id=\"ID_I\">a.png</IMAGE></APP>");
        project.folder.Put("demo/a.png", PngFile(4, 4, 6));
        isCounting = mayCount = false;
        ProjectCheck &check = project.Begin(CountSlowly);
        while (!isCounting)
            (void)check.Step();
        for (int n = 0; n < 100; ++n)
            (void)check.Step();
        EXPECT_FALSE(check.Step()) << "there is nothing to do now";
        EXPECT_TRUE(check.IsRunning());
        int due = 0;
        const Notifier<>::Listener listener(check.due, [&due] { ++due; });
        mayCount = true;
        if (isStopped) {
            project.check.reset();
            continue;
        }
        int argc = 1;
        char name[] = "check_test";
        char *arguments[] = {name, nullptr};
        const QCoreApplication application(argc, arguments);
        while (due == 0)
            QCoreApplication::processEvents();
        while (check.Step()) {
        }
        EXPECT_FALSE(check.IsRunning());
    }
}
