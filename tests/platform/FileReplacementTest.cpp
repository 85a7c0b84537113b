// SPDX-License-Identifier: MIT
#include "FileReplacement.h"
#include "Environment.h"
#include "HostFiles.h"

#include "FileLimit.h"
#include "TempFolder.h"

#include <sys/stat.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

struct WriteFile : testing::Test
{
    WriteFile() { QDir::setCurrent(folder.Path()); }

    TempFolder folder;
};

TEST_F(WriteFile, ReplacesTheFileAndKeepsItsModeAndLinks)
{
    folder.Put("real/a.h", "old");
    ASSERT_EQ(chmod("real/a.h", 0640), 0);
    ASSERT_TRUE(symlink("real/a.h", "a.h") == 0 && symlink("real/b.h", "b.h") == 0 && symlink("loop", "loop") == 0);
    const mode_t mask = umask(022);
    EXPECT_EQ(WriteFileAtomically(u"A.H", "new"), 0); // replaces the existing file, whose name differs in case
    EXPECT_EQ(WriteFileAtomically(u"b.h", "made"), 0);
    umask(mask);
    EXPECT_EQ(WriteFileAtomically(u"loop", "x"), 0) << "a dangling link is replaced";
    EXPECT_EQ(folder.Get("real/a.h") + ' ' + folder.Get("real/b.h"), "new made");
    struct stat a, b;
    ASSERT_TRUE(stat("real/a.h", &a) == 0 && stat("real/b.h", &b) == 0);
    EXPECT_TRUE((a.st_mode & 07777) == 0640 && (b.st_mode & 07777) == 0644);
    EXPECT_TRUE(QFileInfo(u"a.h"_s).isSymLink());
    EXPECT_EQ(folder.Names("real"), QStringList({u"a.h"_s, u"b.h"_s}));
}

TEST_F(WriteFile, KeepsTheFileOnlyIfAllBytesAreEqual)
{
    const QByteArray large(200'000, 'a');
    for (const QByteArray &old :
         {large, large.chopped(1), large.chopped(1) + 'b', 'b' + large.sliced(1), QByteArray()}) {
        folder.Put("a", old);
        FileReplacement file;
        ASSERT_EQ(file.Write(u"a", OnePiece(large)), 0);
        EXPECT_EQ(file.Replaces(), old != large) << old.size();
    }
    FileReplacement fresh;
    ASSERT_EQ(fresh.Write(u"new", OnePiece(large)), 0);
    EXPECT_FALSE(fresh.Replaces());
}

TEST_F(WriteFile, RefusesFilesThatMayNotBeWritten)
{
    folder.MakeFolder("folder");
    folder.Put("readonly", "old");
    ASSERT_TRUE(mkfifo("pipe", 0600) == 0 && chmod("readonly", 0444) == 0 && chmod(".", 0777) == 0);
    EXPECT_EQ(WriteFileAtomically(u"folder", "x"), EISDIR);
    EXPECT_EQ(WriteFileAtomically(u"missing/a", "x"), ENOENT);
    EXPECT_EQ(WriteFileAtomically(u"pipe", "x"), EINVAL);
    EXPECT_EQ(WriteFileAtomically(u"", "x"), ENOENT);
    const bool isRoot = getuid() == 0; // root may write everything
    ASSERT_TRUE(!isRoot || setresuid(65534, 65534, 0) == 0);
    EXPECT_EQ(WriteFileAtomically(u"readonly", "x"), EACCES);
    ASSERT_TRUE(!isRoot || setresuid(0, 0, 0) == 0);
    EXPECT_EQ(folder.Get("readonly"), "old");
    EXPECT_EQ(folder.Names(), QStringList({u"folder"_s, u"pipe"_s, u"readonly"_s}));
}

TEST_F(WriteFile, AFullDiskLeavesTheOldFileAndNoOther)
{
    folder.Put("a.xml", "the old text");
    const QByteArray text(300, 'n');
    for (rlim_t limit = 0; limit <= 300; ++limit) {
        EXPECT_EQ(folder.Get("a.xml"), "the old text");
        const int error = WithFileLimit(limit, [&] { return WriteFileAtomically(u"a.xml", text); });
        ASSERT_EQ(error, limit < 300 ? EFBIG : 0) << limit;
    }
    EXPECT_EQ(folder.Get("a.xml"), text);
    EXPECT_EQ(folder.Names(), QStringList({u"a.xml"_s}));
}

TEST_F(WriteFile, InATransactionHappensAtTheCommitOrNotAtAll)
{
    Environment env(folder.Path());
    const auto write = [&env](const char *text) { return env.ReplaceFile(u"a", text) + env.ReplaceFile(u"b", text); };
    folder.Put("a", "old");
    for (const bool commits : {false, true}) {
        FileTransaction files(env);
        EXPECT_TRUE(write("new") == 0 && write("newer") == 0);
        EXPECT_EQ(folder.Get("a"), "old");
        EXPECT_FALSE(folder.Has("b")) << "uncommitted files left no trace";
        EXPECT_TRUE(!commits || (!files.Commit() && !files.Commit()));
    }
    EXPECT_EQ(folder.Get("a") + ' ' + folder.Get("b"), "newer newer") << "the last of two writes of a file remains";
    EXPECT_EQ(folder.Names(), QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(write("newest"), 0);
    EXPECT_EQ(folder.Get("a"), "newest") << "afterwards writing is immediate again";
}

TEST_F(WriteFile, InATransactionCallsTheCheckAgainWhenNoOtherSaveIsRunning)
{
    Environment env(folder.Path());
    FileTransaction files(env, {folder.Path(), folder.Path("journal")});
    EXPECT_EQ(env.ReplaceFile(folder.Path("a"), "new") + env.ReplaceFile(folder.Path("b"), "new"), 0);
    EXPECT_EQ(files.Commit([&] { return !folder.Has("journal"); }), folder.Path("a"));
    EXPECT_EQ(folder.Names(), QStringList());

    QString said;
    env.explain = [&](const QString &text) { said = text; };
    FileTransaction again(env);
    EXPECT_EQ(env.ReplaceFile(folder.Path("a"), "new"), 0);
    const QString temporary = folder.Path(".a.%1-0").arg(getpid());
    EXPECT_EQ(again.Commit([&] { return QFile::remove(temporary); }), folder.Path("a"));
    EXPECT_TRUE(said.contains(u"another program removed the temporary file"_s)) << qPrintable(said);
}

TEST_F(WriteFile, InATransactionARefusedGeneratedFileDoesNotStopOthers)
{
    Environment env(folder.Path());
    for (const IfRefused refused : {IfRefused::GoOn, IfRefused::Stop}) {
        FileTransaction files(env);
        EXPECT_EQ(env.ReplaceFile(u"header", "h", refused), 0);
        EXPECT_EQ(env.ReplaceFile(u"list", refused == IfRefused::GoOn ? "saved" : "not saved"), 0);
        folder.MakeFolder("header/in the way");
        EXPECT_EQ(files.Commit(), refused == IfRefused::GoOn ? std::nullopt : std::optional(u"header"_s));
        EXPECT_EQ(folder.Get("list"), "saved");
        EXPECT_EQ(folder.Names(), QStringList({u"header"_s, u"list"_s}));
        EXPECT_EQ(env.FailureCount, refused == IfRefused::GoOn ? 1 : 2);
        ASSERT_TRUE(QDir(u"header"_s).removeRecursively());
    }
}

TEST_F(WriteFile, InATransactionARefusedFileRestoresTheFilesBeforeIt)
{
    Environment env(folder.Path());
    folder.Put("there", "old");
    FileTransaction files(env);
    for (const QString &name : {u"there"_s, u"fresh"_s, u"refused"_s})
        EXPECT_EQ(env.ReplaceFile(name, "new"), 0);
    folder.MakeFolder("refused/in the way");
    EXPECT_EQ(files.Commit(), u"refused"_s);
    EXPECT_EQ(folder.Get("there"), "old");
    EXPECT_EQ(folder.Names(), QStringList({u"refused"_s, u"there"_s}));
}

TEST_F(WriteFile, RemovesOnlyTheTemporaryFilesOfKilledProcesses)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    folder.Put("a", "old");
    const QStringList kept = {u".a.%1-"_s,   u".a.%1-01"_s, u".a.%1-0x"_s, u".a.%1-1000"_s,
                              u".a.-%1-0"_s, u".a.0%1-0"_s, u".b.%1-0"_s,  u"a.%1-0"_s};
    for (const QString &name : QStringList{u".a.%1-0"_s, u".a.%1-17"_s} + kept)
        folder.Put(name.arg(child).toUtf8().constData(), "half");
    folder.Put(u".a.%1-0"_s.arg(getppid()).toUtf8().constData(), "of one that runs");
    ASSERT_EQ(symlink("a", u".a.%1-3"_s.arg(child).toUtf8().constData()), 0);
    folder.MakeFolder(u".a.%1-4"_s.arg(child).toUtf8().constData());
    EXPECT_EQ(WriteFileAtomically(u"a", "new"), 0);
    for (const QString &name : kept + QStringList{u".a.%1-3"_s, u".a.%1-4"_s})
        EXPECT_TRUE(folder.Has(name.arg(child).toUtf8().constData())) << qPrintable(name);
    EXPECT_EQ(folder.Names().size(), kept.size() + 4) << "with the file, and the one of the running process";
}
