// SPDX-License-Identifier: MIT
#include "FileLimit.h"
#include "SignalCleanup.h"
#include "TestProject.h"

#include <QElapsedTimer>

#include <csignal>
#include <random>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace
{

using Contents = QByteArrayList;

/// A project of many files and texts that was saved once.
class SaveFaults : public testing::Test
{
protected:
    SaveFaults()
    {
        QByteArray list = "<APP><STRING>res\\ref_list_demo.txt</STRING>";
        QByteArrayList texts;
        for (int i = 0; i < 100; ++i) {
            list += "<FILE id=\"ID_FILE_" + QByteArray::number(i) + "\">.\\data.bin</FILE>";
            texts.append("ID_STRING_" + QByteArray::number(i));
        }
        project.folder.Put("demo/res/demo.res.xml", list + "</APP>");
        project.folder.Put("demo/res/ref_list_demo.txt", TestProject::StringTable(texts));
        doc = project.Open();
        EXPECT_TRUE(doc->DoFileSave());
        (void)project.TakeOutput();
    }

    /// Makes a change that affects all three files.
    void Change(const NarrowText &name)
    {
        doc->root.FindFolder(KIND_BINARY, 2)->resources.First()->Rename(doc->ids, name);
        auto *text = static_cast<CStringRes *>(doc->root.FindFolder(KIND_LANGUAGE, 0, 2)->resources.First());
        text->SetText(QString::fromUtf8(name));
    }

    Contents Read() const
    {
        return {project.folder.Get("demo/res/demo.res.xml"), project.folder.Get("demo/res/ref_list_demo.txt"),
                project.folder.Get("demo/ResID/ResID.h")};
    }

    TestProject project;
    CResDoc *doc = nullptr;
};

} // namespace

TEST_F(SaveFaults, AFullDiskAtAnyPointKeepsEveryFileAndLeavesNoOther)
{
    const Contents before = Read();
    Change("ID_NEW");
    // No file may grow beyond a limit, which rises until all files fit. First the string file fails, then the
    // header, then the list.
    int failures = 0;
    const auto save = [&] { return doc->DoFileSave() ? doc->lastSave.write : -1; };
    for (rlim_t limit = 0; WithFileLimit(limit, save) != 0; limit += 197, ++failures) {
        SCOPED_TRACE(limit);
        const QByteArray said = project.TakeOutput();
        EXPECT_TRUE(said.startsWith("Error 1: failed to write to file \"res\\") &&
                    said.endsWith("[demo] save - 1 error(s), 0 warning(s)\r\n"))
            << said.constData();
        EXPECT_EQ(project.folder.Names("demo/res"), QStringList({u"demo.res.xml"_s, u"ref_list_demo.txt"_s}));
        EXPECT_EQ(project.folder.Names("demo/ResID"), QStringList({u"ResID.h"_s}));
        ASSERT_EQ(Read(), before);
    }
    EXPECT_GT(failures, 10);
    for (int file = 0; file < 3; ++file)
        EXPECT_NE(Read()[file], before[file]);
}

TEST_F(SaveFaults, AKillAtAnyMomentLeavesCompleteFilesOfOneSave)
{
    // Two states, which a child process saves in turns.
    const char *const names[] = {"ID_A", "ID_B_AND_MORE"};
    Contents states[2];
    QElapsedTimer timer;
    timer.start();
    for (int which : {0, 1}) {
        Change(names[which]);
        ASSERT_TRUE(doc->DoFileSave());
        states[which] = Read();
    }
    const auto longest = unsigned(std::clamp<qint64>(timer.nsecsElapsed() / 700, 3000, 200'000)); // about three saves
    std::mt19937 random(11);
    bool sawEach[2] = {};
    for (int round = 0; round < 240; ++round) {
        SCOPED_TRACE(round);
        const int signal = round < 200 ? SIGKILL : SIGTERM;
        // A save of the document removes what the last killed save left.
        ASSERT_TRUE(round != 200 || doc->DoFileSave());
        const pid_t child = fork();
        if (child == 0) {
            SignalCleanup::Install();
            for (int which = round % 2;; which = !which) {
                Change(names[which]);
                (void)doc->DoFileSave();
            }
        }
        usleep(useconds_t(random() % longest)); // a random moment in the first few saves
        kill(child, signal);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
        if (round > 200) { // files left by the previous round
            ASSERT_EQ(project.folder.Names("demo/res"), QStringList({u"demo.res.xml"_s, u"ref_list_demo.txt"_s}));
            ASSERT_EQ(project.folder.Names("demo/ResID"), QStringList({u"ResID.h"_s}));
        }
        const Contents now = Read();
        for (int file = 0; file < 3; ++file) {
            ASSERT_TRUE(now[file] == states[0][file] || now[file] == states[1][file]) << file;
            sawEach[now[file] == states[1][file]] = true;
        }
        TestProject other; // has its own program, and opens the files that were left
        CDocManager documents([&] { return std::make_unique<CResDoc>(*other.env, project.tables, other.services); });
        ASSERT_NE(documents.OpenDocumentFile(project.Path()), nullptr) << other.TakeOutput().constData();
        documents.CloseAll();
        ASSERT_TRUE(Read() == states[0] || Read() == states[1]);
    }
    ASSERT_TRUE(doc->DoFileSave());
    EXPECT_EQ(project.folder.Names("demo/res"), QStringList({u"demo.res.xml"_s, u"ref_list_demo.txt"_s}));
    EXPECT_EQ(project.folder.Names("demo/ResID"), QStringList({u"ResID.h"_s}));
    EXPECT_TRUE(sawEach[0] && sawEach[1]);
}

TEST_F(SaveFaults, AProjectWhoseFolderIsGoneIsNotSavedIntoTheFolderOfAnother)
{
    const Contents before = Read();
    ASSERT_TRUE(QDir().rename(project.folder.Path("demo"), project.folder.Path("moved")));
    ASSERT_TRUE(QDir().mkpath(project.folder.Path("other/res")) && QDir().mkpath(project.folder.Path("other/ResID")));
    ASSERT_TRUE(QDir::setCurrent(project.folder.Path("other")));
    Change("ID_NEW");
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_TRUE(doc->IsModified() && doc->lastSave.write != 0 && doc->lastSave.generate != 0);
    const QByteArray said = project.TakeOutput();
    EXPECT_TRUE(said.contains("failed to write to file") && said.contains("save - 1 error(s)")) << said.constData();
    EXPECT_EQ(QDir(project.folder.Path("other/res")).count() + QDir(project.folder.Path("other/ResID")).count(), 4U)
        << "nothing but . and ..";

    ASSERT_TRUE(QDir().rename(project.folder.Path("moved"), project.folder.Path("demo")));
    EXPECT_EQ(Read(), before);
    EXPECT_TRUE(doc->DoFileSave());
    EXPECT_FALSE(doc->IsModified());
}
