// SPDX-License-Identifier: MIT
#include "IdeCommandServer.h"

#include "Sockets.h"

#include <sys/stat.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

const QByteArray ANSWER("\1\0\0\0", 4);

/// A command as it is sent.
QByteArray Message(quint32 id, const QByteArray &record = {})
{
    const quint32 header[2] = {id, quint32(record.size())};
    return QByteArray(reinterpret_cast<const char *>(header), sizeof header) + record;
}

/// A server that records its commands. Client and server take turns on one thread: what was sent is available
/// immediately.
class IdeCommandServerTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(server->Listen(error)) << qPrintable(error); }

    FileHandle Connect(const QByteArray &sent = {})
    {
        FileHandle peer = ConnectTo(path);
        SendBytes(peer, sent);
        return peer;
    }

    /// Dispatches like a poll loop, until there is nothing more to do.
    void DispatchAll()
    {
        int rounds = 0;
        pollfd wait{server->PollFd(), POLLIN, 0};
        for (; poll(&wait, 1, 0) == 1 && rounds < 100000; ++rounds)
            server->Dispatch();
        EXPECT_LT(rounds, 100000) << "the descriptor stays readable";
    }

    /// Returns what a peer has received so far.
    QByteArray Answers(const FileHandle &peer)
    {
        DispatchAll();
        return ReadNow(peer);
    }

    TestRuntime runtime;
    const QByteArray path = runtime.Path(WINDOW_SOCKET);
    QString error;
    QByteArrayList commands;
    std::function<void()> during = [] {};
    std::optional<IdeCommandServer> server{[this](quint32 id, QByteArrayView record) {
        commands.append(QByteArray::number(id) + record.toByteArray());
        (std::function<void()>(during))(); // may set another function
        return 1;
    }};
};

TEST_F(IdeCommandServerTest, AcceptsCommandsInAnyPiecesAndAnswersAfterTheyHaveRun)
{
    const FileHandle peer = Connect();
    during = [&] { EXPECT_EQ(ReadNow(peer), ANSWER.repeated(commands.size() == 2)); };
    for (const char byte : Message(0xAFBDDBFB, "ab") + Message(2)) {
        SendBytes(peer, QByteArray(1, byte));
        DispatchAll();
    }
    during = [] {};
    SendBytes(peer, Message(3) + Message(4, "cd") + Message(5));
    EXPECT_EQ(Answers(peer), ANSWER.repeated(4));
    EXPECT_EQ(commands, QByteArrayList({"2948455419ab", "2", "3", "4cd", "5"}));
}

TEST_F(IdeCommandServerTest, StalledDisconnectedAndHostilePeersDoNotBlockOthers)
{
    const FileHandle inHeader = Connect(Message(1).first(7));
    const FileHandle inRecord = Connect(Message(2, "abc").first(10));
    const FileHandle larger = Connect(Message(3, QByteArray(65537, 'a')).first(8));
    const FileHandle hostile = Connect(QByteArray(8, '\xff'));
    for (qsizetype cut = 0; cut <= 11; ++cut)
        Connect(Message(4, "abc").first(cut)); // disconnects at once; a complete command counts nevertheless
    const FileHandle largest = Connect(Message(5, QByteArray(65536, 'a')));
    EXPECT_EQ(Answers(largest), ANSWER);
    EXPECT_EQ(server->ConnectionCount(), 3U) << "connections with too large records are closed";
    SendBytes(inRecord, "c");
    EXPECT_EQ(Answers(inRecord), ANSWER);
    EXPECT_EQ(commands, QByteArrayList({"4abc", '5' + QByteArray(65536, 'a'), "2abc"}));
}

TEST_F(IdeCommandServerTest, AnswersInOrderAndClosesTheLongestIdlePeerAboveTheLimit)
{
    std::vector<FileHandle> peers;
    QByteArrayList inOrder;
    for (quint32 i = 0; i < IdeCommandServer::CONNECTION_LIMIT; ++i) {
        peers.push_back(Connect(Message(i)));
        inOrder.append(QByteArray::number(i));
    }
    for (const FileHandle &peer : peers)
        EXPECT_EQ(Answers(peer), ANSWER);
    EXPECT_EQ(commands, inOrder);

    SendBytes(peers[0], Message(1).first(2)); // a byte makes it active
    DispatchAll();
    const FileHandle newcomer = Connect(Message(2));
    EXPECT_EQ(Answers(newcomer), ANSWER);
    EXPECT_EQ(ReadAll(peers[1]), QByteArray()) << "the read ends because the connection is closed";
    SendBytes(peers[0], Message(1).sliced(2));
    EXPECT_EQ(Answers(peers[0]), ANSWER);
    EXPECT_EQ(server->ConnectionCount(), IdeCommandServer::CONNECTION_LIMIT);
}

TEST_F(IdeCommandServerTest, RunsOneCommandAtATimeAndTakesPeersInTurns)
{
    const FileHandle second = Connect();
    DispatchAll();
    const FileHandle first = Connect(Message(1) + Message(3));
    int running = 0;
    during = [&] {
        EXPECT_EQ(running++, 0);
        server->Dispatch(); // like a nested event loop
        if (commands.size() == 1)
            SendBytes(second, Message(2));
        --running;
    };
    for (qsizetype before = 0; commands.size() < 3; before = commands.size()) {
        server->Dispatch();
        EXPECT_LE(commands.size(), before + 1);
    }
    EXPECT_EQ(commands, QByteArrayList({"1", "2", "3"}));
}

TEST_F(IdeCommandServerTest, HoldsCommandsBackWhilePaused)
{
    const FileHandle peer = Connect(Message(1) + Message(2));
    const FileHandle ready = Connect(Message(3));
    const FileHandle gone = Connect();
    during = [&] { server->SetPaused(true); }; // as if a box opened
    DispatchAll();
    shutdown(gone.Get(), SHUT_RDWR);
    const FileHandle later = Connect(Message(4));
    server->Dispatch();
    DispatchAll();
    EXPECT_EQ(commands, QByteArrayList({"1"}));
    EXPECT_EQ(server->ConnectionCount(), 3U) << "a disconnected peer isn't served";

    during = [] {};
    server->SetPaused(false);
    EXPECT_EQ(Answers(later), ANSWER);
    EXPECT_EQ(ReadNow(peer), ANSWER.repeated(2));
    EXPECT_EQ(server->ConnectionCount(), 3U);
}

TEST_F(IdeCommandServerTest, ImmediateCommandsRunInsideOthersAndWhilePaused)
{
    server->waitsForNothing = [](quint32 id) { return id == 9; };
    const FileHandle peer = Connect(Message(1) + Message(2));
    std::vector<FileHandle> others;
    during = [&] {
        during = [] {};
        for (size_t i = 0; i + 1 < IdeCommandServer::CONNECTION_LIMIT; ++i) // the server's tables grow meanwhile
            others.push_back(Connect(Message(9)));
        for (int round = 0; round < 10; ++round)
            server->Dispatch();
        EXPECT_EQ(ReadNow(others.back()), ANSWER);
        others.clear();
        server->SetPaused(true);
    };
    DispatchAll();
    const FileHandle later = Connect(Message(9));
    EXPECT_EQ(Answers(later), ANSWER);
    EXPECT_EQ(commands.count("2"), 0);
    server->SetPaused(false);
    EXPECT_EQ(Answers(peer), ANSWER.repeated(2));
}

TEST_F(IdeCommandServerTest, KeepsAnswersForAPeerThatReadsLate)
{
    const FileHandle slow = Connect();
    const int small = 1; // the kernel raises it to its minimum
    setsockopt(slow.Get(), SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
    SendBytes(slow, Message(7).repeated(2000));
    const FileHandle other = Connect(Message(8));
    EXPECT_EQ(Answers(other), ANSWER);
    QByteArray answers;
    for (int round = 0; round < 10000; ++round)
        answers += Answers(slow);
    EXPECT_EQ(answers, ANSWER.repeated(2000));
}

TEST_F(IdeCommandServerTest, ACommandThatThrowsClosesOnlyItsConnection)
{
    const FileHandle unlucky = Connect(Message(1));
    during = [] { throw std::runtime_error("out of something"); };
    EXPECT_THROW(DispatchAll(), std::runtime_error);
    EXPECT_EQ(ReadAll(unlucky), QByteArray()) << "the read ends because the connection is closed";
    during = [] {};
    const FileHandle other = Connect(Message(2));
    EXPECT_EQ(Answers(other), ANSWER);
}

TEST_F(IdeCommandServerTest, ReplacesTheSocketOfADeadProgramAndNothingElse)
{
    const QString shown = QString::fromLocal8Bit(path);
    const auto listens = [&] { return IdeCommandServer(nullptr).Listen(error); };
    EXPECT_FALSE(listens());
    EXPECT_EQ(error, u"another program listens at "_s + shown);
    ConnectTo(path); // the server still accepts connections
    server.reset();
    EXPECT_NE(access(path.constData(), F_OK), 0) << "the socket is removed with its server";
    ListenAt(path);
    EXPECT_TRUE(listens());
    ASSERT_EQ(mkdir(path.constData(), 0700), 0);
    EXPECT_FALSE(listens());
    EXPECT_EQ(error, shown + u" is not a socket; remove it"_s);
}

} // namespace
