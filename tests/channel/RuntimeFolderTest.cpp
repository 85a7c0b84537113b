#include "RuntimeFolder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

class RuntimeFolder : public ::testing::Test
{
protected:
    void SetUp() override
    {
        session = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("XDG_RUNTIME_DIR");
    }
    void TearDown() override
    {
        qunsetenv("MORVANITE_RUNTIME_DIR");
        if (session.isEmpty())
            qunsetenv("XDG_RUNTIME_DIR");
        else
            qputenv("XDG_RUNTIME_DIR", session);
    }

    [[nodiscard]] QByteArray In(const char *name) const { return folder.path().toLocal8Bit() + '/' + name; }

    /// The error of choosing this folder.
    QString Refused(const QByteArray &path)
    {
        qputenv("MORVANITE_RUNTIME_DIR", path);
        QString why;
        EXPECT_EQ(EnsureRuntimeFolder(why), QByteArray());
        return why;
    }

    QTemporaryDir folder;
    QByteArray session;
    QString error;
};

TEST_F(RuntimeFolder, IsTheOneChosenElseTheSessionsElseOneOfTheUsersInTmp)
{
    EXPECT_EQ(EnsureRuntimeFolder(error), "/tmp/morvanite-" + QByteArray::number(geteuid()));
    qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
    EXPECT_EQ(EnsureRuntimeFolder(error), In("morvanite"));
    qputenv("MORVANITE_RUNTIME_DIR", In("own/"));
    EXPECT_EQ(EnsureRuntimeFolder(error), In("own"));
    EXPECT_EQ(SocketPath("name", error), In("own/name"));
}

TEST_F(RuntimeFolder, IsMadeForTheUserAlone)
{
    qputenv("MORVANITE_RUNTIME_DIR", In("own"));
    ASSERT_EQ(EnsureRuntimeFolder(error), In("own"));
    struct stat info;
    ASSERT_EQ(stat(In("own").constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0700U);
}

TEST_F(RuntimeFolder, IsRefusedWhenItIsNoFolderOfTheUsersOwn)
{
    ASSERT_EQ(symlink(folder.path().toLocal8Bit().constData(), In("link").constData()), 0);
    EXPECT_TRUE(Refused(In("link")).contains(u"is no folder"_s));
    EXPECT_TRUE(Refused(In("link/")).contains(u"is no folder"_s));
    EXPECT_TRUE(Refused("/dev/null").contains(u"is no folder"_s));
    EXPECT_TRUE(Refused(In("missing/own")).contains(u"can't be made: No such file"_s));
    EXPECT_TRUE(Refused("relative").contains(u"no absolute path"_s));
    if (geteuid() == 0) {
        ASSERT_EQ(mkdir(In("others").constData(), 0777), 0);
        ASSERT_EQ(chown(In("others").constData(), 12345, 12345), 0);
        EXPECT_TRUE(Refused(In("others")).contains(u"belongs to user 12345, not to you (0)"_s));
    } else {
        EXPECT_TRUE(Refused("/").contains(u"belongs to user 0"_s));
    }
}

TEST_F(RuntimeFolder, RoomForASocketsPathEndsAt107Bytes)
{
    qputenv("MORVANITE_RUNTIME_DIR", folder.path().toLocal8Bit());
    const qsizetype room = 107 - folder.path().toLocal8Bit().size() - 1;
    EXPECT_EQ(SocketPath(QByteArray(room, 'a').constData(), error).size(), 107);
    EXPECT_EQ(SocketPath(QByteArray(room + 1, 'a').constData(), error), QByteArray());
    EXPECT_TRUE(error.contains(u"has 108 bytes, and there is room for 107"_s)) << qPrintable(error);
}

} // namespace
