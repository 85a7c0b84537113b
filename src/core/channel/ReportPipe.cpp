// SPDX-License-Identifier: MIT
#include "ReportPipe.h"

#include "RuntimeFolder.h"

#include <QtEndian>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/time.h>

namespace
{

constexpr timeval BUSY_WAIT{2, 0};

bool SetBlocking(int socket, bool blocks)
{
    const int flags = fcntl(socket, F_GETFL);
    return flags >= 0 && fcntl(socket, F_SETFL, blocks ? flags & ~O_NONBLOCK : flags | O_NONBLOCK) == 0;
}

/// Connects to a socket with a full backlog and waits for a place in it.
int ConnectWaiting(const FileHandle &socket, const std::string &path)
{
    if (!SetBlocking(socket.Get(), true) ||
        setsockopt(socket.Get(), SOL_SOCKET, SO_SNDTIMEO, &BUSY_WAIT, sizeof BUSY_WAIT) != 0)
        return errno;
    const int failure = ConnectSocket(socket, path);
    return failure == 0 && !SetBlocking(socket.Get(), false) ? errno : failure;
}

} // namespace

bool ReportPipe::Open()
{
    Close();
    std::string error;
    const std::string path = SocketPath(PIPE_SOCKET, error);
    if (path.empty())
        return false;
    FileHandle socket = MakeSocket(SOCK_NONBLOCK);
    if (!socket.IsOpen())
        return false;
    int failure = ConnectSocket(socket, path);
    if (failure == EAGAIN)
        failure = ConnectWaiting(socket, path);
    if (failure != 0 || !IsSameUser(socket.Get()))
        return false;
    connection = std::move(socket);
    linesAtOnce = LINES_AT_ONCE;
    broken = false;
    return true;
}

void ReportPipe::Write(QStringView text)
{
    if (!IsOpen() || broken)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (held.isEmpty())
        heldSince = now;
    const qsizetype end = held.size();
    held.resize(end + text.size() * 2);
    qToLittleEndian<char16_t>(text.utf16(), text.size(), held.data() + end);
    if (linesAtOnce > 0) {
        --linesAtOnce;
        Send();
    } else if (held.size() >= GATHERED_BYTES || now - heldSince >= LONGEST_HOLD) {
        Send();
    }
}

void ReportPipe::Flush()
{
    Send();
    linesAtOnce = LINES_AT_ONCE;
}

void ReportPipe::Close()
{
    Send();
    connection = FileHandle();
}

void ReportPipe::Send()
{
    if (IsOpen() && !held.isEmpty() && !broken)
        broken = !SendHeld();
    held.clear();
}

bool ReportPipe::SendHeld()
{
    qsizetype done = 0;
    while (done < held.size()) {
        const ssize_t sent = send(connection.Get(), held.constData() + done, size_t(held.size() - done), MSG_NOSIGNAL);
        if (sent >= 0)
            done += sent;
        else if (errno != EINTR && !(errno == EAGAIN && WaitForRoom()))
            return false;
    }
    return true;
}

/// Returns false if the program must end while it waits.
bool ReportPipe::WaitForRoom() const
{
    pollfd events[] = {{connection.Get(), POLLOUT, 0}, {ending, POLLIN, 0}};
    while (poll(events, 2, -1) < 0 && errno == EINTR) {
    }
    return events[1].revents == 0;
}
