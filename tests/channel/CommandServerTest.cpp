#include "CommandServer.h"

#include "Sockets.h"

#include <sys/stat.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

const QByteArray ANSWER("\1\0\0\0", 4);

/// A server whose commands are written down. Client and server take turns on one thread: what was sent is there at
/// once.
class CommandServerTest : public ::testing::Test
{
protected:
    CommandServerTest() { EXPECT_TRUE(server.Listen(error)) << qPrintable(error); }

    FileHandle Connect() { return ConnectTo(runtime.Path(WINDOW_SOCKET)); }

    /// Dispatches as a poll loop would, until there is nothing more to do.
    int DispatchAll()
    {
        int rounds = 0;
        for (; IsReadable(server.PollFd()) && rounds < 100000; ++rounds)
            server.Dispatch();
        EXPECT_LT(rounds, 100000) << "the descriptor stays readable";
        return rounds;
    }

    TestRuntime runtime;
    QString error;
    std::vector<std::pair<quint32, QByteArray>> commands;
    std::function<void()> during;
    CommandServer server{[this](quint32 id, QByteArrayView record) {
        commands.emplace_back(id, record.toByteArray());
        if (during)
            during();
        return 1;
    }};
};

TEST_F(CommandServerTest, AnswersACommandOnceItHasRun)
{
    const FileHandle peer = Connect();
    SendBytes(peer, Message(0xAFBDDBFB, "record"));
    during = [&] { EXPECT_EQ(ReadNow(peer), QByteArray()); };
    DispatchAll();
    ASSERT_EQ(commands.size(), 1U);
    EXPECT_EQ(commands[0].first, 0xAFBDDBFB);
    EXPECT_EQ(commands[0].second, "record");
    EXPECT_EQ(ReadNow(peer), ANSWER);
}

TEST_F(CommandServerTest, ACommandMayComeByteByByteAndSeveralAtOnce)
{
    const FileHandle peer = Connect();
    for (const char byte : Message(1, "ab") + Message(2, "")) {
        SendBytes(peer, QByteArray(1, byte));
        DispatchAll();
    }
    EXPECT_EQ(ReadNow(peer), ANSWER + ANSWER);
    SendBytes(peer, Message(3, "") + Message(4, "cd") + Message(5, ""));
    DispatchAll();
    EXPECT_EQ(ReadNow(peer), ANSWER + ANSWER + ANSWER);
    ASSERT_EQ(commands.size(), 5U);
    EXPECT_EQ(commands[3], std::make_pair(4U, QByteArray("cd")));
}

TEST_F(CommandServerTest, ARecordAbove64KiBClosesItsConnection)
{
    const FileHandle largest = Connect();
    const FileHandle tooLarge = Connect();
    const FileHandle hostile = Connect();
    SendBytes(largest, Message(1, QByteArray(65536, 'a')));
    SendBytes(tooLarge, Message(1, QByteArray(65537, 'a')).first(8));
    SendBytes(hostile, QByteArray(8, '\xff'));
    DispatchAll();
    EXPECT_EQ(ReadNow(largest), ANSWER);
    EXPECT_TRUE(IsClosed(tooLarge));
    EXPECT_TRUE(IsClosed(hostile));
    EXPECT_EQ(commands.size(), 1U);
}

TEST_F(CommandServerTest, PeersThatStallOrVanishHoldUpNobody)
{
    const FileHandle silent = Connect();
    const FileHandle inHeader = Connect();
    const FileHandle inRecord = Connect();
    SendBytes(inHeader, Message(1, "").first(7));
    SendBytes(inRecord, Message(2, "abc").first(10));
    for (qsizetype cut = 0; cut < 11; ++cut) {
        const FileHandle vanishing = Connect();
        SendBytes(vanishing, Message(3, "abc").first(cut));
        DispatchAll();
    }
    {
        const FileHandle impatient = Connect(); // its command is whole, so it counts
        SendBytes(impatient, Message(4, "last"));
    }
    const FileHandle peer = Connect();
    SendBytes(peer, Message(5, ""));
    DispatchAll();
    EXPECT_EQ(ReadNow(peer), ANSWER);
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_EQ(commands[0], std::make_pair(4U, QByteArray("last")));

    SendBytes(inRecord, "c");
    DispatchAll();
    EXPECT_EQ(ReadNow(inRecord), ANSWER);
    EXPECT_EQ(server.ConnectionCount(), 4U);
}

TEST_F(CommandServerTest, SixtyFourClientsAtOnceAreAnsweredInTheirOrder)
{
    std::vector<FileHandle> peers;
    for (quint32 i = 0; i < 64; ++i) {
        peers.push_back(Connect());
        SendBytes(peers.back(), Message(i, QByteArray(1696, char(i))));
    }
    DispatchAll();
    ASSERT_EQ(commands.size(), 64U);
    for (quint32 i = 0; i < 64; ++i) {
        EXPECT_EQ(commands[i].first, i);
        EXPECT_EQ(ReadNow(peers[i]), ANSWER);
    }
}

TEST_F(CommandServerTest, RunsOneCommandAtATimeAndSaysThatThereAreMore)
{
    const FileHandle first = Connect();
    const FileHandle second = Connect();
    SendBytes(first, Message(1, "") + Message(3, ""));
    SendBytes(second, Message(2, ""));
    during = [&] {
        const size_t before = commands.size();
        server.Dispatch(); // as a nested event loop might
        EXPECT_EQ(commands.size(), before);
    };
    for (size_t count = 1; count <= 3; ++count) {
        while (commands.size() < count && IsReadable(server.PollFd()))
            server.Dispatch();
        EXPECT_EQ(commands.size(), count);
    }
    ASSERT_EQ(commands.size(), 3U);
    EXPECT_EQ(commands[1].first, 2U); // a peer's next command comes behind those of others
}

TEST_F(CommandServerTest, BeyondItsLimitClosesTheLongestSilentPeer)
{
    std::vector<FileHandle> peers;
    for (size_t i = 0; i < CommandServer::CONNECTION_LIMIT; ++i) {
        peers.push_back(Connect());
        DispatchAll();
    }
    SendBytes(peers[0], Message(1, "").first(2)); // a sign of life
    DispatchAll();
    const FileHandle newcomer = Connect();
    SendBytes(newcomer, Message(2, ""));
    DispatchAll();
    EXPECT_EQ(ReadNow(newcomer), ANSWER);
    EXPECT_FALSE(IsClosed(peers[0]));
    EXPECT_TRUE(IsClosed(peers[1]));
    EXPECT_EQ(server.ConnectionCount(), CommandServer::CONNECTION_LIMIT);
}

TEST_F(CommandServerTest, HoldsCommandsBackWhilePaused)
{
    const FileHandle arrived = Connect();
    SendBytes(arrived, Message(1, "a").first(8));
    const FileHandle gone = Connect();
    DispatchAll();
    during = [&] { server.SetPaused(commands.size() == 1); }; // a box opens
    SendBytes(arrived, "a");
    DispatchAll();
    ASSERT_EQ(commands.size(), 1U);

    const FileHandle later = Connect();
    SendBytes(later, Message(2, ""));
    SendBytes(arrived, Message(3, ""));
    shutdown(gone.Get(), SHUT_RDWR);
    EXPECT_FALSE(IsReadable(server.PollFd()));
    server.Dispatch();
    EXPECT_EQ(commands.size(), 1U);

    server.SetPaused(false);
    DispatchAll();
    EXPECT_EQ(commands.size(), 3U);
    EXPECT_EQ(ReadNow(later), ANSWER);
    EXPECT_EQ(ReadNow(arrived), ANSWER + ANSWER);
    EXPECT_EQ(server.ConnectionCount(), 2U);
}

TEST_F(CommandServerTest, APeerThatDoesNotReadItsAnswersGetsThemLater)
{
    const FileHandle slow = Connect();
    const int small = 1; // the kernel takes its smallest
    setsockopt(slow.Get(), SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
    QByteArray answers;
    qsizetype sent = 0;
    const QByteArray message = Message(7, "");
    for (int round = 0; round < 2000; ++round) {
        if (send(slow.Get(), message.constData(), size_t(message.size()), MSG_DONTWAIT) == message.size())
            ++sent;
        DispatchAll();
    }
    const FileHandle other = Connect();
    SendBytes(other, Message(8, ""));
    DispatchAll();
    EXPECT_EQ(ReadNow(other), ANSWER);
    for (qsizetype before = -1; before != answers.size(); DispatchAll()) {
        before = answers.size();
        answers += ReadNow(slow);
    }
    EXPECT_EQ(answers, ANSWER.repeated(sent));
}

TEST_F(CommandServerTest, ACommandThatThrowsCostsItsConnectionOnly)
{
    const FileHandle unlucky = Connect();
    const FileHandle other = Connect();
    SendBytes(unlucky, Message(1, ""));
    during = [] { throw std::runtime_error("out of something"); };
    EXPECT_THROW(DispatchAll(), std::runtime_error);
    EXPECT_TRUE(IsClosed(unlucky));
    during = nullptr;
    SendBytes(other, Message(2, ""));
    DispatchAll();
    EXPECT_EQ(ReadNow(other), ANSWER);
}

TEST_F(CommandServerTest, ASecondServerIsRefusedWhileOneLives)
{
    {
        CommandServer second([](quint32, QByteArrayView) { return 1; });
        QString why;
        EXPECT_FALSE(second.Listen(why));
        EXPECT_TRUE(why.startsWith(u"another program listens at "_s)) << qPrintable(why);
        EXPECT_EQ(second.PollFd(), -1);
    }
    const FileHandle peer = Connect();
    SendBytes(peer, Message(1, ""));
    DispatchAll();
    EXPECT_EQ(ReadNow(peer), ANSWER);
}

class WindowSocket : public ::testing::Test
{
protected:
    bool Listens()
    {
        CommandServer server([](quint32, QByteArrayView) { return 1; });
        return server.Listen(error);
    }
    TestRuntime runtime;
    QString error;
};

TEST_F(WindowSocket, IsGoneAfterItsServerAndReplacedAfterADeadOne)
{
    const QByteArray path = runtime.Path(WINDOW_SOCKET);
    LeaveStaleSocket(path);
    EXPECT_TRUE(Listens()) << qPrintable(error);
    struct stat info;
    EXPECT_NE(lstat(path.constData(), &info), 0);
    EXPECT_TRUE(Listens());
}

TEST_F(WindowSocket, OfALivingProgramIsNeverReplacedEvenWithoutALock)
{
    const QByteArray path = runtime.Path(WINDOW_SOCKET);
    const FileHandle other = ListenAt(path, 0);
    EXPECT_FALSE(Listens());
    std::vector<FileHandle> crowd; // a full backlog is a sign of life, too
    for (int i = 0; i < 8; ++i) {
        crowd.push_back(MakeSocket(SOCK_NONBLOCK));
        (void)ConnectSocket(crowd.back(), path);
    }
    EXPECT_FALSE(Listens());
    EXPECT_TRUE(error.startsWith(u"another program listens at "_s));
    struct stat info;
    EXPECT_EQ(lstat(path.constData(), &info), 0);
}

TEST_F(WindowSocket, NeverTakesThePlaceOfSomethingElse)
{
    const QByteArray path = runtime.Path(WINDOW_SOCKET);
    ASSERT_EQ(mkdir(path.constData(), 0700), 0);
    EXPECT_FALSE(Listens());
    EXPECT_EQ(error, QString::fromLocal8Bit(path) + u" is no socket; remove it"_s);
}

} // namespace
