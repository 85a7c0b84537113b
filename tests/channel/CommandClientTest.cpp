#include "CommandClient.h"

#include "CommandServer.h"
#include "ReportPipe.h"

#include "Sockets.h"

#include <sys/eventfd.h>

#include <thread>

using namespace Qt::StringLiterals;

namespace
{

/// A window on a thread of its own, whose commands do as the test wants.
class TestWindow
{
public:
    explicit TestWindow(CommandServer::Runner runner) : server(std::move(runner))
    {
        QString error;
        EXPECT_TRUE(server.Listen(error)) << qPrintable(error);
        thread = std::thread([this] {
            pollfd waits[] = {{server.PollFd(), POLLIN, 0}, {ending.Get(), POLLIN, 0}};
            while (poll(waits, 2, -1) > 0 && waits[1].revents == 0)
                server.Dispatch();
        });
    }
    ~TestWindow()
    {
        eventfd_write(ending.Get(), 1);
        thread.join();
    }

private:
    FileHandle ending{eventfd(0, EFD_CLOEXEC)};
    CommandServer server;
    std::thread thread;
};

class CommandClientTest : public ::testing::Test
{
protected:
    std::optional<quint32> Run(const QByteArray &record = "record")
    {
        return CommandClient::Run(
            5, record, [this](QStringView text) { pieces += text.toString(); }, error);
    }
    [[nodiscard]] QString Report() const { return pieces.join(QString()); }

    TestRuntime runtime;
    QStringList pieces;
    QString error;
};

TEST_F(CommandClientTest, CollectsTheReportAndTheAnswer)
{
    QByteArray got;
    const QString large = u"\U0001F514 and so on\r\n"_s.repeated(20000);
    const TestWindow window([&](quint32 id, QByteArrayView record) {
        got = QByteArray::number(id) + ' ' + record.toByteArray();
        ReportPipe pipe;
        EXPECT_TRUE(pipe.Open());
        pipe.Write(large);
        pipe.Close();
        return 1;
    });
    EXPECT_EQ(Run(), 1U) << qPrintable(error);
    EXPECT_EQ(got, "5 record");
    EXPECT_EQ(Report(), large);
    for (const QString &piece : pieces)
        ASSERT_FALSE(piece.back().isHighSurrogate()) << "a character was torn";
}

TEST_F(CommandClientTest, ACharacterSentInTwoHalvesArrivesInOnePiece)
{
    const TestWindow window([&](quint32, QByteArrayView) {
        const FileHandle pipe = ConnectTo(runtime.Path(PIPE_SOCKET));
        for (const char byte : QByteArray("\x3d\xd8\x14\xdd!\0\x3d\xd8", 8))
            SendBytes(pipe, QByteArray(1, byte));
        return 1;
    });
    EXPECT_EQ(Run(), 1U);
    EXPECT_EQ(Report(), u"\U0001F514!"_s + QChar(0xd83d)); // the last half stands alone in the report, too
    EXPECT_FALSE(pieces.first().back().isHighSurrogate());
}

TEST_F(CommandClientTest, TheAnswerAloneEndsACommandWithoutReport)
{
    LeaveStaleSocket(runtime.Path(PIPE_SOCKET)); // of a client that was killed
    const TestWindow window([](quint32, QByteArrayView) { return 1; });
    EXPECT_EQ(Run(), 1U) << qPrintable(error);
    EXPECT_EQ(Report(), QString());
    EXPECT_EQ(Run(), 1U) << qPrintable(error);
    EXPECT_FALSE(QByteArray(runtime.Path(PIPE_SOCKET)).isEmpty());
    EXPECT_NE(access(runtime.Path(PIPE_SOCKET).constData(), F_OK), 0);
}

TEST_F(CommandClientTest, SomebodyWhoOnlyLooksAtThePipeDoesNotEndTheReport)
{
    const TestWindow window([&](quint32, QByteArrayView) {
        ConnectTo(runtime.Path(PIPE_SOCKET));
        ReportPipe pipe;
        EXPECT_TRUE(pipe.Open());
        pipe.Write(u"the report");
        pipe.Close();
        return 1;
    });
    EXPECT_EQ(Run(), 1U);
    EXPECT_EQ(Report(), u"the report"_s);
}

TEST_F(CommandClientTest, SaysWhenNoWindowRuns)
{
    EXPECT_FALSE(Run());
    EXPECT_TRUE(error.startsWith(u"Morvanite isn't running"_s)) << qPrintable(error);
    LeaveStaleSocket(runtime.Path(WINDOW_SOCKET));
    EXPECT_FALSE(Run());
    EXPECT_TRUE(error.startsWith(u"Morvanite isn't running"_s)) << qPrintable(error);
}

TEST_F(CommandClientTest, SaysWhenAnIdeServesThePipe)
{
    const FileHandle ide = ListenAt(runtime.Path(PIPE_SOCKET));
    EXPECT_FALSE(Run());
    EXPECT_TRUE(error.startsWith(u"another program listens at "_s)) << qPrintable(error);
}

TEST_F(CommandClientTest, KeepsTheReportOfAWindowThatGoesAway)
{
    const FileHandle listener = ListenAt(runtime.Path(WINDOW_SOCKET));
    std::thread window([&] {
        const FileHandle command(accept(listener.Get(), nullptr, nullptr));
        char bytes[8 + 6];
        EXPECT_EQ(recv(command.Get(), bytes, sizeof bytes, MSG_WAITALL), ssize_t(sizeof bytes));
        ReportPipe pipe;
        EXPECT_TRUE(pipe.Open());
        pipe.Write(u"half a rep");
    });
    EXPECT_FALSE(Run());
    window.join();
    EXPECT_EQ(error, u"Morvanite went away before it answered"_s);
    EXPECT_EQ(Report(), u"half a rep"_s);
}

TEST_F(CommandClientTest, SixtyFourClientsAtOnceTakeTurnsAndEachGetsItsOwnReport)
{
    const TestWindow window([](quint32, QByteArrayView record) {
        ReportPipe pipe;
        EXPECT_TRUE(pipe.Open());
        for (int i = 0; i < 100; ++i)
            pipe.Write(QString::fromLatin1(record));
        pipe.Close();
        return 1;
    });
    std::vector<std::thread> clients;
    for (int i = 0; i < 64; ++i) {
        clients.emplace_back([i] {
            const QByteArray record = QByteArray::number(i) + ' ';
            QString report;
            QString why;
            const auto answer = CommandClient::Run(
                1, record, [&](QStringView text) { report += text; }, why);
            EXPECT_EQ(answer, 1U) << qPrintable(why);
            EXPECT_EQ(report, QString::fromLatin1(record.repeated(100)));
        });
    }
    for (std::thread &client : clients)
        client.join();
}

} // namespace
