// SPDX-License-Identifier: MIT
#include "ReportPipe.h"

#include "Sockets.h"

#include <QElapsedTimer>

#include <sys/eventfd.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace
{

QByteArray Utf16(QStringView text)
{
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

class ReportPipeTest : public ::testing::Test
{
protected:
    TestRuntime runtime;
    QByteArray path = runtime.Path(PIPE_SOCKET);
    FileHandle listener = ListenAt(path);
    ReportPipe pipe;
};

TEST_F(ReportPipeTest, SendsManyLinesAsUtf16AndTheRestOnFlush)
{
    ASSERT_TRUE(pipe.Open());
    const FileHandle ide = AcceptAt(listener);
    pipe.Write(u"a\u4e2d");
    EXPECT_EQ(ReadNow(ide), QByteArray("a\0\x2d\x4e", 4)); // arrives at once
    QByteArray all;
    QByteArray read;
    for (int i = 0; i < 3000; ++i) {
        const QString line = u"Warning %1: something.\r\n"_s.arg(i);
        all += Utf16(line);
        pipe.Write(line);
        read += ReadNow(ide);
        ASSERT_LE(all.size() - read.size(), ReportPipe::GATHERED_BYTES);
    }
    pipe.Flush();
    read += ReadNow(ide);
    EXPECT_EQ(read, all);
    pipe.Write(u"and at once again");
    EXPECT_EQ(ReadNow(ide), Utf16(u"and at once again"));
    pipe.Close();
    EXPECT_FALSE(pipe.IsOpen());
    EXPECT_EQ(ReadAll(ide), QByteArray());
}

TEST_F(ReportPipeTest, SurvivesAnIdeThatDisconnectsAndDropsTheRest)
{
    ASSERT_TRUE(pipe.Open());
    AcceptAt(listener);
    for (int i = 0; i < 200; ++i)
        pipe.Write(u"dropped");
    pipe.Close();
    ASSERT_TRUE(pipe.Open()) << "the next command tries again";
    const FileHandle ide = AcceptAt(listener);
    pipe.Write(u"kept");
    pipe.Close();
    EXPECT_EQ(ReadAll(ide), Utf16(u"kept"));
}

TEST_F(ReportPipeTest, AnEndRequestAbandonsAReportThatNobodyReads)
{
    const FileHandle ending(eventfd(1, EFD_CLOEXEC));
    ReportPipe ended(ending.Get());
    ASSERT_TRUE(ended.Open());
    const FileHandle ide = AcceptAt(listener);
    ended.Write(QString(4 << 20, u'x')); // more than the socket buffer holds; without the request this would block
    QByteArray got = ReadNow(ide);
    ended.Write(u"dropped"); // although there is room again
    ended.Close();
    got += ReadAll(ide);
    EXPECT_LT(got.size(), 8 << 20);
    EXPECT_FALSE(got.contains("d\0r\0"));
}

TEST_F(ReportPipeTest, WaitsALimitedTimeForABusyIdeAndNotForADeadOne)
{
    const FileHandle other = ConnectTo(path);
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(pipe.Open());
    EXPECT_GE(timer.elapsed(), 1990);
    std::thread ide([&] { AcceptAt(listener); });
    EXPECT_TRUE(pipe.Open());
    ide.join();
    listener = FileHandle();
    EXPECT_FALSE(pipe.Open());
    EXPECT_FALSE(pipe.IsOpen());
}

} // namespace
