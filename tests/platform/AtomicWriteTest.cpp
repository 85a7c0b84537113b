#include "HostFiles.h"

#include "FileLimit.h"
#include "TempFolder.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

class WriteFile : public testing::Test
{
protected:
    [[nodiscard]] QByteArray Narrow(const char *name) const { return folder.Path(name).toUtf8(); }
    [[nodiscard]] int Write(const char *name, const QByteArray &bytes) const
    {
        return WriteFileAtomically(folder.Path(name), bytes);
    }
    [[nodiscard]] mode_t Mode(const char *name) const
    {
        struct stat info = {};
        EXPECT_EQ(stat(Narrow(name).constData(), &info), 0);
        return info.st_mode & 07777;
    }
    TempFolder folder;
};

} // namespace

TEST_F(WriteFile, ReplacesTheFileAndKeepsItsModeAndTheLinksThatLeadToIt)
{
    folder.Put("real/a.h", "old");
    ASSERT_EQ(chmod(Narrow("real/a.h").constData(), 0640), 0);
    ASSERT_EQ(symlink("real/a.h", Narrow("a.h").constData()), 0);
    ASSERT_EQ(symlink("real/b.h", Narrow("b.h").constData()), 0);
    ASSERT_EQ(symlink("loop", Narrow("loop").constData()), 0);
    const mode_t mask = umask(022);
    EXPECT_EQ(Write("A.H", "new"), 0); // the file there, spelled differently
    EXPECT_EQ(Write("b.h", "made"), 0);
    umask(mask);
    EXPECT_EQ(Write("loop", "x"), 0) << "a link that leads nowhere is replaced";
    EXPECT_EQ(folder.Get("real/a.h") + ' ' + folder.Get("real/b.h"), "new made");
    EXPECT_EQ(Mode("real/a.h"), mode_t(0640));
    EXPECT_EQ(Mode("real/b.h"), mode_t(0644));
    EXPECT_TRUE(QFileInfo(folder.Path("a.h")).isSymLink());
    EXPECT_EQ(folder.Names("real"), QStringList({u"a.h"_s, u"b.h"_s}));
}

TEST_F(WriteFile, RefusesWhatMayNotBeWritten)
{
    folder.MakeFolder("folder");
    ASSERT_EQ(mkfifo(Narrow("pipe").constData(), 0600), 0);
    EXPECT_EQ(Write("folder", "x"), EISDIR);
    EXPECT_EQ(Write("missing/a", "x"), ENOENT);
    EXPECT_EQ(Write("pipe", "x"), EINVAL);
    EXPECT_EQ(WriteFileAtomically(u"", "x"), ENOENT);
    folder.Put("readonly", "old");
    ASSERT_EQ(chmod(Narrow("readonly").constData(), 0444), 0);
    ASSERT_EQ(chmod(Narrow("").constData(), 0777), 0);
    const auto asNobody = [&] { return setuid(65534) == 0 || getuid() != 0 ? Write("readonly", "new") : EACCES; };
    EXPECT_EQ(WithFileLimit(RLIM_INFINITY, asNobody), EACCES);
    EXPECT_EQ(folder.Get("readonly"), "old");
    EXPECT_EQ(folder.Names(), QStringList({u"folder"_s, u"pipe"_s, u"readonly"_s}));
}

TEST_F(WriteFile, AFullDiskLeavesTheOldFileAndNothingBesideIt)
{
    folder.Put("a.xml", "the old text");
    const QByteArray text(300, 'n');
    for (rlim_t limit = 0; limit < 300; ++limit)
        ASSERT_EQ(WithFileLimit(limit, [&] { return Write("a.xml", text); }), EFBIG) << limit;
    EXPECT_EQ(folder.Get("a.xml"), "the old text");
    EXPECT_EQ(folder.Names(), QStringList({u"a.xml"_s}));
    EXPECT_EQ(WithFileLimit(300, [&] { return Write("a.xml", text); }), 0);
    EXPECT_EQ(folder.Get("a.xml"), text);
}

TEST_F(WriteFile, OfATransactionHappensWithTheCommitOrNotAtAll)
{
    folder.Put("a", "old");
    for (const bool commits : {false, true}) {
        FileTransaction files;
        EXPECT_EQ(Write("a", "new"), 0);
        EXPECT_EQ(Write("b", "new b"), 0);
        EXPECT_EQ(Write("b", "newer b"), 0);
        EXPECT_EQ(folder.Get("a"), "old");
        EXPECT_FALSE(folder.Has("b")) << "the first left no trace";
        EXPECT_TRUE(!commits || (files.Commit() && files.Commit()));
    }
    EXPECT_EQ(folder.Get("a") + ", " + folder.Get("b"), "new, newer b") << "of two writings of one file the last stays";
    EXPECT_EQ(folder.Names(), QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(Write("a", "newest"), 0);
    EXPECT_EQ(folder.Get("a"), "newest") << "afterwards writing is immediate again";
}
