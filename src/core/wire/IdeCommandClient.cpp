// SPDX-License-Identifier: MIT
#include "IdeCommandClient.h"

#include "LittleEndian.h"
#include "LocalSocket.h"
#include "RuntimeFolder.h"
#include "Utf16.h"

#include <array>
#include <cerrno>
#include <poll.h>

namespace
{

/// The longest wait for the end of a report after the command has been answered. The window closes the pipe before it
/// answers, so only an unknown program on the pipe makes this wait necessary.
constexpr int END_OF_REPORT_MS = 2000;

/// The pipe's end on this side: one connection after another, read as UTF-16LE.
class ReportReader
{
public:
    ReportReader(const ListeningSocket &pipeSocket, const IdeCommandClient::Sink &reportSink)
        : pipe(pipeSocket), sink(reportSink)
    {
    }

    /// What to poll for reading.
    [[nodiscard]] int Descriptor() const { return connection.IsOpen() ? connection.Get() : pipe.Get(); }

    /// True within a report, and if a new report is waiting.
    [[nodiscard]] bool InReport()
    {
        if (!connection.IsOpen())
            connection = pipe.Accept();
        return connection.IsOpen();
    }

    /// Reads the bytes that have arrived.
    void Advance()
    {
        if (!InReport())
            return;
        std::array<char, 16384> bytes;
        const ssize_t size = recv(connection.Get(), bytes.data(), bytes.size(), 0);
        if (size < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        if (size > 0) {
            held.append(bytes.data(), size_t(size));
            Pass(Rest::Hold);
        } else {
            Pass(Rest::Give);
            held.clear();
            connection = FileHandle();
        }
    }

private:
    enum class Rest
    {
        Hold,
        Give,
    };

    /// Passes whole characters to the sink. The first half of a character waits for the second, unless nothing more
    /// will arrive.
    void Pass(Rest rest)
    {
        std::u16string text = Utf16OfBytes(held);
        if (rest == Rest::Hold && !text.empty() && IsHighSurrogate(text.back()))
            text.pop_back();
        held.erase(0, text.size() * 2);
        if (!text.empty() && sink)
            sink(text);
    }

    const ListeningSocket &pipe;
    const IdeCommandClient::Sink &sink;
    FileHandle connection;
    std::string held;
};

/// Connects to the window. The result isn't open, and `error` says why, if no window is running.
FileHandle ConnectToWindow(std::string &error)
{
    const std::string path = SocketPath(WINDOW_SOCKET, error);
    if (path.empty())
        return FileHandle();
    FileHandle window = MakeSocket();
    const int failure = ConnectSocket(window, path);
    if (failure == ENOENT || failure == ECONNREFUSED)
        error =
            "Morvanite is not running: no program listens at " + path + "; start it, or start \"morvanite-cli serve\"";
    else if (failure != 0)
        error = "Morvanite can't be reached at " + path + ": " + SystemErrorText(failure);
    else if (!IsSameUser(window.Get()))
        error = "the program that listens at " + path + " belongs to another user";
    else
        return window;
    return FileHandle();
}

bool SendCommand(const FileHandle &window, uint32_t dwData, std::string_view record)
{
    std::string message(8, '\0');
    PutLittleEndian(dwData, message.data());
    PutLittleEndian(uint32_t(record.size()), message.data() + 4);
    message += record;
    return SendAll(window.Get(), message.data(), message.size());
}

/// Reads report and answer at the same time until both are complete. Returns nothing if the window ends first.
std::optional<uint32_t> Collect(const FileHandle &window, ReportReader &reader)
{
    std::array<char, 4> answer{};
    size_t received = 0;
    bool windowOpen = true;
    while (windowOpen || reader.InReport()) {
        std::array<pollfd, 2> waits{{{reader.Descriptor(), POLLIN, 0}, {windowOpen ? window.Get() : -1, POLLIN, 0}}};
        const int count = poll(waits.data(), waits.size(), windowOpen ? -1 : END_OF_REPORT_MS);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        if (waits[0].revents != 0)
            reader.Advance();
        if (waits[1].revents == 0)
            continue;
        const ssize_t size = recv(window.Get(), answer.data() + received, answer.size() - received, 0);
        if (size < 0 && errno == EINTR)
            continue;
        if (size > 0)
            received += size_t(size);
        windowOpen = size > 0 && received < answer.size();
    }
    if (received < answer.size())
        return std::nullopt;
    return GetLittleEndian<uint32_t>(answer.data());
}

} // namespace

std::optional<uint32_t> IdeCommandClient::Run(uint32_t dwData, std::string_view record, const Sink &report,
                                              std::string &error)
{
    const std::string pipePath = SocketPath(PIPE_SOCKET, error);
    if (pipePath.empty())
        return std::nullopt;
    ListeningSocket pipe;
    if (!pipe.Open(pipePath, ListeningSocket::Turn::Wait, error))
        return std::nullopt;
    const FileHandle window = ConnectToWindow(error);
    if (!window.IsOpen())
        return std::nullopt;
    std::optional<uint32_t> answer;
    if (SendCommand(window, dwData, record)) {
        ReportReader reader(pipe, report);
        answer = Collect(window, reader);
    }
    if (!answer)
        error = "Morvanite ended before it answered";
    return answer;
}
