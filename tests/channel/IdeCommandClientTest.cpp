// SPDX-License-Identifier: MIT
#include "IdeCommandClient.h"

#include "ReportPipe.h"
#include "Sockets.h"

#include <thread>

using namespace Qt::StringLiterals;

namespace
{

void SendReport(const QString &text)
{
    ReportPipe pipe;
    EXPECT_TRUE(pipe.Open());
    pipe.Write(text);
    pipe.Close();
}

class IdeCommandClientTest : public ::testing::Test
{
protected:
    /// Starts a window on its own thread. It accepts so many commands, and answers those for which `run` returns true.
    void BeginWindow(int commands, std::function<bool(const QByteArray &record)> run)
    {
        window = std::jthread([commands, run, listener = std::make_shared<FileHandle>(ListenAt(windowPath, 64))] {
            for (int i = 0; i < commands; ++i) {
                const FileHandle client = AcceptAt(*listener);
                QByteArray message(8 + 6, '\0');
                EXPECT_EQ(recv(client.Get(), message.data(), size_t(message.size()), MSG_WAITALL), message.size());
                EXPECT_EQ(message.first(8), QByteArray("\5\0\0\0\6\0\0\0", 8));
                if (run(message.sliced(8)))
                    SendBytes(client, QByteArray("\1\0\0\0", 4));
            }
        });
    }

    std::optional<uint32_t> Run()
    {
        return IdeCommandClient::Run(
            5, "record", [this](std::u16string_view text) { pieces += QStringView(text).toString(); }, error);
    }

    TestRuntime runtime;
    QByteArray windowPath = runtime.Path(WINDOW_SOCKET);
    QByteArray pipePath = runtime.Path(PIPE_SOCKET);
    QStringList pieces;
    std::string error;
    std::jthread window;
};

TEST_F(IdeCommandClientTest, ReturnsTheAnswerAndTheReportInWholeCharacters)
{
    const QString large = u"\U0001F514 and so on\r\n"_s.repeated(20000);
    BeginWindow(1, [&](const QByteArray &record) {
        EXPECT_EQ(record, "record");
        ConnectTo(pipePath); // a client that only connects
        SendReport(large);
        const FileHandle pipe = ConnectTo(pipePath);
        for (const char byte : QByteArray("\x3d\xd8\x14\xdd!\0\x3d\xd8", 8))
            SendBytes(pipe, QByteArray(1, byte));
        return true;
    });
    EXPECT_EQ(Run(), 1U) << error;
    EXPECT_EQ(pieces.takeLast(), QChar(0xd83d)) << "half a character is alone in the report too";
    for (const QString &piece : pieces)
        ASSERT_FALSE(piece.back().isHighSurrogate()) << "a character was split";
    EXPECT_EQ(pieces.join(QString()), large + u"\U0001F514!"_s);
}

TEST_F(IdeCommandClientTest, ReportsThatNoWindowAnswersOrAnIdeOwnsThePipe)
{
    EXPECT_FALSE(Run());
    EXPECT_TRUE(error.starts_with("Morvanite is not running")) << error;
    ListenAt(windowPath); // those of programs that were killed
    ListenAt(pipePath);
    EXPECT_FALSE(Run());
    EXPECT_TRUE(error.starts_with("Morvanite is not running")) << error;
    EXPECT_NE(access(pipePath.constData(), F_OK), 0);
    unlink(windowPath.constData());
    BeginWindow(1, [](const QByteArray &) {
        SendReport(u"half a rep"_s);
        return false;
    });
    EXPECT_FALSE(Run());
    EXPECT_EQ(error, "Morvanite ended before it answered");
    EXPECT_EQ(pieces.join(QString()), u"half a rep"_s);
    const FileHandle ide = ListenAt(pipePath);
    const FileHandle busy = ConnectTo(pipePath); // an IDE without a free place is still running
    EXPECT_FALSE(Run());
    EXPECT_TRUE(error.starts_with("another program listens at ")) << error;
}

TEST_F(IdeCommandClientTest, Serves64ClientsInTurnsWithSeparateReports)
{
    BeginWindow(64, [](const QByteArray &record) {
        SendReport(QString::fromLatin1(record).repeated(100));
        return true;
    });
    std::vector<std::jthread> clients;
    for (int i = 0; i < 64; ++i) {
        clients.emplace_back([record = QByteArray::number(100000 + i)] {
            QString report;
            std::string why;
            const auto sink = [&](std::u16string_view text) { report += text; };
            EXPECT_EQ(IdeCommandClient::Run(5, record.toStdString(), sink, why), 1U) << why;
            EXPECT_EQ(report, QString::fromLatin1(record.repeated(100)));
        });
    }
}

} // namespace
