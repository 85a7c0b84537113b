// SPDX-License-Identifier: MIT
#include "OutputFile.h"
#include "PackProject.h"

#include <fcntl.h>
#include <thread>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace
{

/// Drops the rights of the superuser while it exists.
class AsNobody
{
public:
    AsNobody() { EXPECT_EQ(seteuid(geteuid() == 0 ? 65534 : geteuid()), 0); }
    ~AsNobody() { EXPECT_EQ(seteuid(getuid()), 0); }
    AsNobody(const AsNobody &) = delete;
    AsNobody &operator=(const AsNobody &) = delete;
};

struct OutputFileTest : testing::Test, PackProject
{
    /// Writes a file. Returns 0 or an error number.
    int Make(const char *file, const OutputRights &rights)
    {
        const int foreseen = ErrorOfOutput(Narrow(file), rights);
        OutputFile written(env);
        const int error = written.Begin(Narrow(file), rights);
        EXPECT_EQ(foreseen, error) << file;
        if (error != 0)
            return error;
        EXPECT_TRUE(written.Write("new") && written.Flush());
        return written.PutInPlace();
    }
};

constexpr OutputRights APPLICATION{.fresh = 0755, .replacesReadOnly = true};

} // namespace

TEST_F(OutputFileTest, KeepsPermissionsAndLinksOfAnOldFileThatIsNotTheInput)
{
    folder.Put("old", "old");
    folder.Put("sub/behind", "old");
    folder.Put("many", "old");
    ASSERT_TRUE(symlink("sub/behind", "link") == 0 && symlink("sub/new", "dangling") == 0 &&
                link("many", "names") == 0);
    for (const char *file : {"old", "sub/behind", "many"})
        ASSERT_EQ(chmod(file, 0604), 0);
    for (const char *file : {"old", "link", "dangling", "names"})
        EXPECT_EQ(Make(file, {}), 0) << file;
    for (const char *file : {"old", "sub/behind", "many"}) {
        EXPECT_EQ(folder.Get(file), "new");
        EXPECT_EQ(Mode(file), 0604) << file;
    }
    EXPECT_EQ(folder.Get("sub/new"), "new");
    EXPECT_EQ(folder.Names("sub"), QStringList({u"behind"_s, u"new"_s}));
    EXPECT_TRUE(QFileInfo(folder.Path("link")).isSymLink() && QFileInfo(folder.Path("dangling")).isSymLink());
    EXPECT_EQ(Make("old", APPLICATION), 0);
    EXPECT_EQ(Mode("old"), 0755);
    EXPECT_EQ(Make("sub", APPLICATION), EISDIR);
    EXPECT_EQ(Make("none/new", APPLICATION), ENOENT);
    EXPECT_THAT(TakeExplained().toStdString(), HasSubstr("none/new: No such file or directory\n"));
}

TEST_F(OutputFileTest, WritesDirectlyInAFolderThatAllowsNoNewFiles)
{
    folder.Put("closed/old", "something that is longer");
    ASSERT_TRUE(chmod("closed/old", 0666) == 0 && chmod("closed", 0555) == 0 && chmod(".", 0755) == 0);
    {
        const AsNobody nobody;
        EXPECT_EQ(Make("closed/old", APPLICATION), 0);
        EXPECT_EQ(Make("closed/none", APPLICATION), EACCES);
    }
    ASSERT_EQ(chmod("closed", 0755), 0);
    EXPECT_EQ(folder.Get("closed/old"), "new");
    EXPECT_EQ(folder.Names("closed"), QStringList(u"old"_s));
}

TEST_F(OutputFileTest, WritesTheSameBytesToADeviceOrAPipeAndKeepsTheWindowResponsive)
{
    ASSERT_EQ(Pack(), 0);
    const QByteArray packed = folder.Get("app.out");
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    QByteArray got;
    std::thread reader([&] { got = folder.Get("pipe"); });
    FileHandle writer;
    while (!writer.IsOpen()) // waits for a reader
        writer = FileHandle(open("pipe", O_WRONLY | O_NONBLOCK | O_CLOEXEC));
    info.outputfilename = "pipe";
    EXPECT_EQ(Pack(), 0);
    writer = FileHandle();
    reader.join();
    EXPECT_EQ(got, packed);

    int turns = 0;
    env.whileWaiting = [&] { ++turns; };
    info.outputfilename = "/dev/null";
    EXPECT_EQ(Pack(), 0);
    EXPECT_EQ(turns, 0) << "a short pack doesn't call back";
    ASSERT_EQ(truncate("app.axf", off_t(1) << 30), 0);
    EXPECT_EQ(Pack(), 0);
    EXPECT_GT(turns, 0);
    EXPECT_EQ(TakeExplained(), "");
}
