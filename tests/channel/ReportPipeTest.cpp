#include "ReportPipe.h"

#include "Sockets.h"

#include <thread>

using namespace Qt::StringLiterals;

namespace
{

class ReportPipeTest : public ::testing::Test
{
protected:
    [[nodiscard]] QByteArray Path() const { return runtime.Path(PIPE_SOCKET); }
    static FileHandle Accept(const FileHandle &listener)
    {
        return FileHandle(accept(listener.Get(), nullptr, nullptr));
    }

    TestRuntime runtime;
    ReportPipe pipe;
};

TEST_F(ReportPipeTest, WritesUtf16WithoutFraming)
{
    const FileHandle listener = ListenAt(Path());
    ASSERT_TRUE(pipe.Open());
    const FileHandle ide = Accept(listener);
    pipe.Write(u"a\r\n");
    EXPECT_EQ(ReadNow(ide), QByteArray("a\0\r\0\n\0", 6)); // at once
    pipe.Write(u"\u4e2d");
    pipe.Close();
    EXPECT_FALSE(pipe.IsOpen());
    EXPECT_EQ(ReadToEnd(ide), QByteArray("\x2d\x4e", 2));
}

TEST_F(ReportPipeTest, DoesNotOpenWithoutAnIde)
{
    EXPECT_FALSE(pipe.Open());
    LeaveStaleSocket(Path());
    EXPECT_FALSE(pipe.Open());
    EXPECT_FALSE(pipe.IsOpen());
    pipe.Write(u"nowhere");
    pipe.Flush();
    pipe.Close();
}

TEST_F(ReportPipeTest, LongRunsOfLinesArriveWholeAndAtTheLatestWithAFlush)
{
    const FileHandle listener = ListenAt(Path());
    ASSERT_TRUE(pipe.Open());
    const FileHandle ide = Accept(listener);
    QString all;
    QByteArray read;
    for (int i = 0; i < 3000; ++i) {
        const QString line = u"Warning %1: something.\r\n"_s.arg(i);
        all += line;
        pipe.Write(line);
        read += ReadNow(ide);
        ASSERT_LE(all.size() * 2 - read.size(), ReportPipe::GATHERED_BYTES);
    }
    pipe.Flush();
    read += ReadNow(ide);
    EXPECT_EQ(FromUtf16(read), all);
    pipe.Write(u"and at once again");
    EXPECT_EQ(FromUtf16(ReadNow(ide)), u"and at once again"_s);
}

TEST_F(ReportPipeTest, WaitsForASlowReader)
{
    const FileHandle listener = ListenAt(Path());
    ASSERT_TRUE(pipe.Open());
    const FileHandle ide = Accept(listener);
    QByteArray read;
    std::thread reader([&] { read = ReadToEnd(ide); });
    const QString large(1 << 20, u'x');
    pipe.Write(large);
    pipe.Close();
    reader.join();
    EXPECT_EQ(FromUtf16(read), large);
}

TEST_F(ReportPipeTest, AnIdeThatGoesAwayRaisesNoSignalAndDropsTheRest)
{
    const FileHandle listener = ListenAt(Path());
    ASSERT_TRUE(pipe.Open());
    {
        const FileHandle ide = Accept(listener);
        pipe.Write(u"first");
    }
    for (int i = 0; i < 200; ++i)
        pipe.Write(u"second");
    pipe.Close();
    ASSERT_TRUE(pipe.Open()); // the next command has the next chance
    const FileHandle ide = Accept(listener);
    pipe.Write(u"third");
    pipe.Close();
    EXPECT_EQ(FromUtf16(ReadToEnd(ide)), u"third"_s);
}

/// Fills the places that a listener with backlog 0 has.
std::vector<FileHandle> FillBacklog(const QByteArray &path)
{
    std::vector<FileHandle> crowd;
    int failure = 0;
    while (failure == 0 && crowd.size() < 100) {
        crowd.push_back(MakeSocket(SOCK_NONBLOCK));
        failure = ConnectSocket(crowd.back(), path);
    }
    EXPECT_EQ(failure, EAGAIN);
    crowd.pop_back();
    return crowd;
}

TEST_F(ReportPipeTest, WaitsForAPlaceAtABusyIde)
{
    const FileHandle listener = ListenAt(Path(), 0);
    const auto crowd = FillBacklog(Path());
    QByteArray read;
    std::thread ide([&] {
        for (size_t i = 0; i < crowd.size(); ++i)
            Accept(listener);
        read = ReadToEnd(Accept(listener));
    });
    EXPECT_TRUE(pipe.Open());
    pipe.Write(u"at last");
    pipe.Close();
    ide.join();
    EXPECT_EQ(FromUtf16(read), u"at last"_s);
}

TEST_F(ReportPipeTest, GivesABusyIdeUpInTheEnd)
{
    const FileHandle listener = ListenAt(Path(), 0);
    const auto crowd = FillBacklog(Path());
    EXPECT_FALSE(pipe.Open());
}

} // namespace
