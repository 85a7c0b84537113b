#include "HostFiles.h"
#include "TempFolder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace
{

mode_t ModeOf(const QString &path)
{
    struct stat info = {};
    EXPECT_EQ(stat(path.toUtf8().constData(), &info), 0);
    return info.st_mode & 07777;
}

/// Runs `work` in a child in which no file can grow above `limit` bytes; its exit status.
template <typename Work> int WithFileLimit(rlim_t limit, const Work &work)
{
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit files{limit, limit};
        setrlimit(RLIMIT_FSIZE, &files);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST(WriteFileAtomically, ReplacesTheFileAndKeepsItsMode)
{
    const TempFolder folder;
    folder.Put("a.h", "old");
    ASSERT_EQ(chmod(folder.Path("a.h").toUtf8().constData(), 0640), 0);
    EXPECT_EQ(WriteFileAtomically(folder.Path("A.H"), "new"), 0); // the file there, spelled differently
    EXPECT_EQ(folder.Get("a.h"), "new");
    EXPECT_EQ(ModeOf(folder.Path("a.h")), mode_t(0640));
    EXPECT_EQ(folder.Names(), QStringList({u"a.h"_s}));

    const mode_t mask = umask(022);
    EXPECT_EQ(WriteFileAtomically(folder.Path("b.h"), ""), 0);
    umask(mask);
    EXPECT_EQ(ModeOf(folder.Path("b.h")), mode_t(0644));
}

TEST(WriteFileAtomically, WritesThroughASymbolicLink)
{
    const TempFolder folder;
    folder.Put("real/a.h", "old");
    const QByteArray link = folder.Path("a.h").toUtf8();
    ASSERT_EQ(symlink("real/a.h", link.constData()), 0);
    EXPECT_EQ(WriteFileAtomically(folder.Path("a.h"), "new"), 0);
    EXPECT_EQ(folder.Get("real/a.h"), "new");
    EXPECT_TRUE(QFileInfo(folder.Path("a.h")).isSymLink());

    ASSERT_EQ(symlink("real/fresh.h", folder.Path("b.h").toUtf8().constData()), 0);
    EXPECT_EQ(WriteFileAtomically(folder.Path("b.h"), "made"), 0);
    EXPECT_EQ(folder.Get("real/fresh.h"), "made");

    ASSERT_EQ(symlink("loop", folder.Path("loop").toUtf8().constData()), 0);
    EXPECT_EQ(WriteFileAtomically(folder.Path("loop"), "x"), 0) << "a link that leads nowhere is replaced";
}

TEST(WriteFileAtomically, RefusesWhatMayNotBeWritten)
{
    const TempFolder folder;
    folder.MakeFolder("folder");
    EXPECT_EQ(WriteFileAtomically(folder.Path("folder"), "x"), EISDIR);
    EXPECT_EQ(WriteFileAtomically(folder.Path("missing/a"), "x"), ENOENT);
    ASSERT_EQ(mkfifo(folder.Path("pipe").toUtf8().constData(), 0600), 0);
    EXPECT_EQ(WriteFileAtomically(folder.Path("pipe"), "x"), EINVAL);
    EXPECT_EQ(WriteFileAtomically(u"", "x"), ENOENT);

    folder.Put("readonly", "old");
    ASSERT_EQ(chmod(folder.Path("readonly").toUtf8().constData(), 0444), 0);
    ASSERT_EQ(chmod(folder.Path("").toUtf8().constData(), 0777), 0);
    const QString path = folder.Path("readonly");
    EXPECT_EQ(
        WithFileLimit(RLIM_INFINITY,
                      [&] { return setuid(65534) == 0 || getuid() != 0 ? WriteFileAtomically(path, "new") : EACCES; }),
        EACCES);
    EXPECT_EQ(folder.Get("readonly"), "old");
    EXPECT_EQ(folder.Names(), QStringList({u"folder"_s, u"pipe"_s, u"readonly"_s}));
}

TEST(WriteFileAtomically, AFullDiskLeavesTheOldFileAndNothingBesideIt)
{
    const TempFolder folder;
    folder.Put("a.xml", "the old text");
    const QString path = folder.Path("a.xml");
    const QByteArray text(4096, 'n');
    for (const rlim_t limit : {0, 1, 2048, 4095})
        EXPECT_EQ(WithFileLimit(limit, [&] { return WriteFileAtomically(path, text); }), EFBIG) << limit;
    EXPECT_EQ(folder.Get("a.xml"), "the old text");
    EXPECT_EQ(folder.Names(), QStringList({u"a.xml"_s}));
    EXPECT_EQ(WithFileLimit(4096, [&] { return WriteFileAtomically(path, text); }), 0);
    EXPECT_EQ(folder.Get("a.xml"), text);
}

TEST(FileTransaction, NothingChangesBeforeTheCommitAndAllWithIt)
{
    const TempFolder folder;
    folder.Put("a", "old a");
    {
        FileTransaction files;
        EXPECT_EQ(WriteFileAtomically(folder.Path("a"), "new a"), 0);
        EXPECT_EQ(WriteFileAtomically(folder.Path("b"), "new b"), 0);
        EXPECT_EQ(WriteFileAtomically(folder.Path("b"), "newer b"), 0);
        EXPECT_EQ(folder.Get("a"), "old a");
        EXPECT_FALSE(folder.Has("b"));
        EXPECT_TRUE(files.Commit());
        EXPECT_EQ(folder.Get("a"), "new a");
        EXPECT_EQ(folder.Get("b"), "newer b") << "of two writings of one file the last stays";
        EXPECT_TRUE(files.Commit()) << "nothing is left to do";
    }
    EXPECT_EQ(folder.Names(), QStringList({u"a"_s, u"b"_s}));
}

TEST(FileTransaction, WhatIsNotCommittedLeavesNoTrace)
{
    const TempFolder folder;
    folder.Put("a", "old");
    {
        const FileTransaction files;
        EXPECT_EQ(WriteFileAtomically(folder.Path("a"), "new"), 0);
    }
    EXPECT_EQ(folder.Names(), QStringList({u"a"_s}));
    EXPECT_EQ(folder.Get("a"), "old");
    EXPECT_EQ(WriteFileAtomically(folder.Path("a"), "new"), 0);
    EXPECT_EQ(folder.Get("a"), "new") << "afterwards writing is immediate again";
}
