// SPDX-License-Identifier: MIT
#include "Sockets.h"

#include <sys/stat.h>

TEST(RuntimeFolder, IsTheChosenTheSessionsOrOneInTmpAndAlwaysOwnedByTheUser)
{
    const TestRuntime top;
    const QByteArray session = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray inTmp = "/tmp/morvanite-" + QByteArray::number(geteuid());
    ASSERT_EQ(symlink(top.Path().constData(), top.Path("link").constData()), 0);
    ASSERT_EQ(mkdir(top.Path("others").constData(), 0777), 0);
    ASSERT_EQ(mkdir(top.Path("open").constData(), 0700), 0);
    ASSERT_EQ(chmod(top.Path("open").constData(), 0777), 0);
    ASSERT_EQ(mkdir(top.Path("session").constData(), 0700), 0);
    ASSERT_EQ(mkdir(top.Path("session/morvanite").constData(), 0700), 0);
    ASSERT_EQ(chmod(top.Path("session/morvanite").constData(), 0720), 0);
    const bool root = chown(top.Path("others").constData(), 12345, 12345) == 0;
    const std::tuple<QByteArray, QByteArray, QByteArray> cases[] = {
        {"", "", inTmp},
        {"", "relative", inTmp},
        {"", top.Path("missing"), inTmp},
        {"", "/dev/null", inTmp},
        {"", root ? top.Path("others") : "/", inTmp},
        {"", top.Path(), top.Path("morvanite")},
        {top.Path("own/"), top.Path(), top.Path("own")},
        {top.Path("link/"), "", "is not a folder"},
        {"/dev/null", "", "is not a folder"},
        {top.Path("missing/own"), "", "can't be created: No such file"},
        {"relative", "", "is not absolute"},
        {top.Path("open"), "", "has mode 0777, so other"},
        {"", top.Path("session"), "session/morvanite has mode 0720, so other"},
        {root ? top.Path("others") : "/", "", root ? "belongs to user 12345, not to you (0)" : "belongs to user 0"},
    };
    for (const auto &[chosen, ofSession, expected] : cases) {
        qputenv("MORVANITE_RUNTIME_DIR", chosen);
        qputenv("XDG_RUNTIME_DIR", ofSession);
        std::string error;
        const QByteArray folder = QByteArray::fromStdString(EnsureRuntimeFolder(error));
        EXPECT_EQ(folder, expected.startsWith('/') ? expected : QByteArray());
        EXPECT_TRUE(folder == expected || error.find(expected.toStdString()) != error.npos) << error;
    }
    qputenv("XDG_RUNTIME_DIR", session);
    struct stat info;
    ASSERT_EQ(stat(top.Path("own").constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0700U);
}

TEST(RuntimeFolder, LimitsSocketPathsTo107Bytes)
{
    const TestRuntime top;
    std::string error;
    const QByteArray longest(107 - top.Path().size() - 1, 'a');
    EXPECT_EQ(SocketPath(longest.constData(), error), top.Path(longest.constData()).toStdString());
    EXPECT_EQ(SocketPath((longest + 'a').constData(), error), "");
    EXPECT_TRUE(error.find("has 108 bytes, but there is room for 107 only") != error.npos) << error;
}
