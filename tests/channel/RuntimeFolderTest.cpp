#include "Sockets.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

/// What choosing a folder gives: its path, or the error.
QByteArray Chosen(const QByteArray &path)
{
    qputenv("MORVANITE_RUNTIME_DIR", path);
    QString error;
    const QByteArray folder = EnsureRuntimeFolder(error);
    return folder.isEmpty() ? error.toLocal8Bit() : folder;
}

TEST(RuntimeFolder, IsTheOneChosenElseTheSessionsElseOneOfTheUsersInTmp)
{
    const TestRuntime top;
    const QByteArray session = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", "");
    EXPECT_EQ(Chosen(""), "/tmp/morvanite-" + QByteArray::number(geteuid()));
    qputenv("XDG_RUNTIME_DIR", top.Path());
    EXPECT_EQ(Chosen(""), top.Path("morvanite"));
    EXPECT_EQ(Chosen(top.Path("own/")), top.Path("own"));
    struct stat info;
    ASSERT_EQ(stat(top.Path("own").constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0700U);
    qputenv("XDG_RUNTIME_DIR", session);
}

TEST(RuntimeFolder, IsRefusedWhenItIsNoFolderOfTheUsersOwn)
{
    const TestRuntime top;
    ASSERT_EQ(symlink(top.Path().constData(), top.Path("link").constData()), 0);
    ASSERT_EQ(mkdir(top.Path("others").constData(), 0777), 0);
    const bool root = chown(top.Path("others").constData(), 12345, 12345) == 0;
    const std::pair<QByteArray, const char *> refused[] = {
        {top.Path("link/"), "is no folder"},
        {"/dev/null", "is no folder"},
        {top.Path("missing/own"), "can't be made: No such file"},
        {"relative", "no absolute path"},
        {root ? top.Path("others") : "/", root ? "belongs to user 12345, not to you (0)" : "belongs to user 0"},
    };
    for (const auto &[path, reason] : refused)
        EXPECT_TRUE(Chosen(path).contains(reason)) << Chosen(path).constData();
}

TEST(RuntimeFolder, RoomForASocketsPathEndsAt107Bytes)
{
    const TestRuntime top;
    QString error;
    const QByteArray longest(107 - top.Path("").size() - 1, 'a');
    EXPECT_EQ(SocketPath(longest.constData(), error), top.Path(longest.constData()));
    EXPECT_EQ(SocketPath((longest + 'a').constData(), error), QByteArray());
    EXPECT_TRUE(error.contains(u"has 108 bytes, and there is room for 107"_s)) << qPrintable(error);
}

} // namespace
