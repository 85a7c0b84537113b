// SPDX-License-Identifier: MIT
#include "SaveJournal.h"
#include "Environment.h"
#include "FilePlace.h"

#include "TempFolder.h"

#include <csignal>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

/// A project of three files, one file outside, and the save of another process that is killed.
struct Journal : testing::Test
{
    Journal()
    {
        QDir::setCurrent(folder.Path());
        env.explain = [this](const QString &text) { said.append(text); };
        folder.Put("user/profile", "mine");
        PutOld();
    }

    void PutOld() const
    {
        for (const char *name : names)
            folder.Put(name, "old");
    }

    QByteArrayList Contents() const { return {folder.Get(names[0]), folder.Get(names[1]), folder.Get(names[2])}; }

    /// Saves in a process that ends by SIGKILL after `renames` renames.
    void SaveAndDie(int renames, int sleepMs = 0, bool ends = false)
    {
        const pid_t child = fork();
        if (child == 0) {
            FileReplacement files[3];
            std::vector<SaveJournal::Entry> entries;
            Leftovers leftovers;
            for (int i = 0; i < 3; ++i) {
                const QByteArray place = RealPath(folder.Path(names[i]).toUtf8());
                (void)files[i].WriteAt(place, OnePiece("new"), leftovers);
                entries.push_back({place, files[i].Number(), i == 2});
            }
            SaveJournal journal;
            (void)journal.Begin(env, project, entries);
            folder.Put("begun", "");
            for (int i = 0; i < renames; ++i) {
                files[i].KeepOld();
                (void)files[i].PutInPlace();
                usleep(useconds_t(sleepMs) * 1000);
            }
            if (ends)
                journal.End();
            kill(getpid(), SIGKILL);
        }
        if (sleepMs == 0)
            EXPECT_EQ(waitpid(child, nullptr, 0), child);
        else
            while (!folder.Has("begun"))
                usleep(1000);
        QFile::remove(folder.Path("begun"));
    }

    TempFolder folder;
    Environment env{folder.Path()};
    QStringList said;
    static constexpr const char *names[] = {"demo/res/list", "demo/res/strings", "inc/ids.h"};
    const SavedProject project{folder.Path("demo"),
                               folder.Path("demo/res/.demo.journal"),
                               {folder.Path(names[0]), folder.Path(names[1]), folder.Path(names[2])},
                               false,
                               {folder.Path("inc/uix_%s_def.h"), folder.Path("inc/%s.%s.h")},
                               folder.Path("demo/config.xml")};
};

TEST_F(Journal, FinishesASaveThatWasKilledBetweenItsRenames)
{
    for (int renames = 0; renames <= 3; ++renames) {
        PutOld();
        SaveAndDie(renames);
        EXPECT_TRUE(folder.Has("demo/res/.demo.journal"));
        EXPECT_TRUE(FinishInterruptedSave(env, project)) << renames;
        EXPECT_EQ(Contents(), QByteArrayList({"new", "new", "new"})) << renames;
        EXPECT_EQ(folder.Names("demo/res") + folder.Names("inc"), QStringList({u"list"_s, u"strings"_s, u"ids.h"_s}));
        EXPECT_EQ(said.size(), renames < 3 ? 1 : 0) << qPrintable(said.join(u'\n'));
        said.clear();
    }
    // A generated file that was changed since is no reason to refuse the project.
    for (const bool isThere : {true, false}) {
        PutOld();
        SaveAndDie(1);
        if (isThere)
            folder.Put(names[2], "edited");
        else
            ASSERT_TRUE(QFile::remove(folder.Path(names[2])));
        EXPECT_TRUE(FinishInterruptedSave(env, project)) << qPrintable(said.join(u'\n'));
        EXPECT_EQ(Contents(), QByteArrayList({"new", "new", isThere ? "edited" : "new"}));
        EXPECT_EQ(folder.Names("demo/res") + folder.Names("inc"), QStringList({u"list"_s, u"strings"_s, u"ids.h"_s}));
    }
}

TEST_F(Journal, OfASaveThatWasKilledBeforeItsRenamesIsRemovedUnlessAnotherContainerWritesIt)
{
    PutOld();
    for (const char *name : {"demo/res/..demo.journal.1000000000-0", "demo/res/..demo.journal.1000000000-1"})
        folder.Put(name, "");
    const FileHandle written = OpenRead(folder.Path("demo/res/..demo.journal.1000000000-1"));
    ASSERT_EQ(flock(written.Get(), LOCK_EX), 0);
    EXPECT_TRUE(FinishInterruptedSave(env, project));
    EXPECT_EQ(folder.Names("demo/res"), QStringList({u"..demo.journal.1000000000-1"_s, u"list"_s, u"strings"_s}));
    EXPECT_TRUE(said.isEmpty());
}

/// Makes locks fail, as on some network file systems.
static void RefuseLocks()
{
    sock_filter code[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                          BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_flock, 0, 1),
                          BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EBADF),
                          BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog program{std::size(code), code};
    EXPECT_EQ(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) + prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0);
}

TEST_F(Journal, DistinguishesARunningSaveFromAKilledOneWithoutFileLocks)
{
    for (const bool isKilled : {true, false}) {
        PutOld();
        SaveAndDie(isKilled ? 1 : 3, isKilled ? 0 : 100, !isKilled);
        const pid_t child = fork();
        if (child == 0) {
            RefuseLocks();
            _exit(FinishInterruptedSave(env, project) && said.size() == isKilled && Contents()[1] == "new" ? 0 : 1);
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    (void)wait(nullptr);
}

TEST_F(Journal, WaitsForARunningSaveAndThenStarts)
{
    SaveAndDie(3, 100, true);
    FileTransaction files(env, project);
    QDir::setCurrent(project.folder);
    EXPECT_EQ(env.ReplaceFile(u"res\\list", "newest") + env.ReplaceFile(u"res\\strings", "newest"), 0);
    EXPECT_EQ(files.Commit(), std::nullopt);
    EXPECT_EQ(Contents(), QByteArrayList({"newest", "newest", "new"}));
    EXPECT_FALSE(folder.Has("demo/res/.demo.journal"));
    (void)wait(nullptr);
}

TEST_F(Journal, LeavesFilesOfOneSaveWhenTheRollbackIsKilled)
{
    folder.MakeFolder("demo/more");
    for (int i = 0; i < 30; ++i) {
        const QByteArray name = "demo/more/" + QByteArray::number(i) + ".xml";
        folder.Put(name.constData(), "old");
    }
    ASSERT_TRUE(QFile::remove(folder.Path("inc/ids.h")));
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            FileTransaction files(env, project);
            for (int i = 0; i < 30; ++i)
                (void)env.ReplaceFile(folder.Path("demo/more/") + QString::number(i) + u".xml"_s, "new");
            (void)env.ReplaceFile(folder.Path("inc/ids.h"), "new");
            env.explain = [&](const QString &) { (void)!write(ready[1], "x", 1); }; // refused: the rollback begins
            QFile::remove(folder.Path("inc/.ids.h.") + QString::number(getpid()) + u"-0"_s);
            (void)files.Commit();
            _exit(0);
        }
        close(ready[1]);
        char byte = 0;
        ASSERT_EQ(read(ready[0], &byte, 1), 1);
        usleep(useconds_t(round) * 15);
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        close(ready[0]);
        ASSERT_TRUE(FinishInterruptedSave(env, project)) << qPrintable(said.join(u'\n'));
        const QByteArray first = folder.Get("demo/more/0.xml");
        for (int i = 0; i < 30; ++i) {
            const QByteArray name = "demo/more/" + QByteArray::number(i) + ".xml";
            ASSERT_EQ(folder.Get(name.constData()), first) << i;
            folder.Put(name.constData(), "old");
        }
    }
}

TEST_F(Journal, DoesNotOverwriteFilesThatWereChangedSince)
{
    SaveAndDie(1);
    folder.Put("demo/res/list", "taken back");
    EXPECT_FALSE(FinishInterruptedSave(env, project)) << "the strings of the save would be combined with an old list";
    EXPECT_EQ(Contents(), QByteArrayList({"taken back", "old", "old"}));
    PutOld();
    ASSERT_TRUE(QFile::remove(folder.Path("demo/res/.demo.journal")));
    SaveAndDie(2);
    folder.Put("demo/res/list", "edited");
    EXPECT_TRUE(FinishInterruptedSave(env, project)) << "only a generated file was missing";
    EXPECT_EQ(Contents(), QByteArrayList({"edited", "new", "new"}));

    PutOld();
    SaveAndDie(1);
    folder.Put("demo/res/strings", "edited");
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(FinishInterruptedSave(env, project));
        EXPECT_TRUE(said.last().contains(u"/demo/res/strings\" has changed"_s)) << qPrintable(said.last());
    }
    FileTransaction files(env, project);
    EXPECT_EQ(env.ReplaceFile(folder.Path("demo/res/list"), "x") + env.ReplaceFile(folder.Path("inc/ids.h"), "x"), 0);
    EXPECT_NE(files.Commit(), std::nullopt) << "a save doesn't hide it";
    EXPECT_EQ(Contents(), QByteArrayList({"new", "edited", "old"}));
    ASSERT_TRUE(QFile::remove(folder.Path("demo/res/.demo.journal")));
    EXPECT_TRUE(FinishInterruptedSave(env, project)) << "the user has decided";
}

TEST_F(Journal, MayNameOnlyFilesThatASaveWrites)
{
    folder.Put("user/.profile.1234567-0", "attack");
    folder.Put("demo/res/.list.1234567-0", "attack");
    ASSERT_EQ(symlink("../user", folder.Path("demo/link").toUtf8().constData()), 0);
    const QString profile = folder.Path("user/profile");
    const QByteArray line = "needed\t0\t4 1.0\t";
    QByteArrayList bodies = {
        "1234567\n" + line + "../user/profile\nend\n",
        "1234567\n" + line + "link/profile\nend\n",
        "1234567\n" + line + profile.toUtf8() + "\nend\n",
        "1234567\n" + line + "res/list\n" + line + folder.Path("demo/link/profile").toUtf8() + "\nend\n",
        "1234567\n" + line + "res/list\n", // truncated
        "1234567\nneeded\t1000\t-\tres/list\nend\n",
        "-1\nneeded\t0\t-\tres/list\nend\n",
    };
    const QByteArray inc = RealPath(folder.Path("inc").toUtf8());
    for (const QByteArray &path :
         {QByteArray("src/main.c"), QByteArray("demo.vcproj"), QByteArray(".git/hooks/pre-commit"),
          QByteArray("res/.git/a.xml"), QByteArray("res/.xml"), QByteArray("Config.xml"), QByteArray("res/other"),
          inc + "/other.h", inc + "/uix_def.h", inc + "/a.b.h", inc + "/sub/uix_a_def.h", inc + "/a.xml"})
        bodies.append("1234567\n" + line + path + "\nend\n");
    for (const QByteArray &body : bodies) {
        folder.Put("demo/res/.demo.journal", "Morvanite journal 1\n" + body);
        EXPECT_FALSE(FinishInterruptedSave(env, project)) << body.constData();
    }
    for (const bool isPipe : {true, false}) {
        ASSERT_TRUE(QFile::remove(folder.Path("demo/res/.demo.journal")));
        ASSERT_EQ(isPipe ? mkfifo("demo/res/.demo.journal", 0600) : symlink("strings", "demo/res/.demo.journal"), 0);
        EXPECT_FALSE(FinishInterruptedSave(env, project));
    }
    EXPECT_EQ(env.FailureCount, bodies.size() + 2);
    for (const QByteArray &path : {QByteArray("res/strings"), QByteArray("res/l_1.XML"), QByteArray("a.xml"),
                                   inc + "/ids.h", inc + "/uix_radio_def.h", inc + "/a.a.h"}) {
        (void)QFile::remove(folder.Path("demo/res/.demo.journal"));
        folder.Put("demo/res/.demo.journal", "Morvanite journal 1\n7654321\n" + line + path + "\nend\n");
        EXPECT_TRUE(FinishInterruptedSave(env, project)) << path.constData();
    }
    EXPECT_EQ(folder.Get("user/profile") + folder.Get("user/.profile.1234567-0"), "mineattack");
    EXPECT_EQ(Contents(), QByteArrayList({"old", "old", "old"}));
    EXPECT_TRUE(folder.Has("demo/res/.list.1234567-0"));
}
