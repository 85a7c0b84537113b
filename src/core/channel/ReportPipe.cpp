#include "ReportPipe.h"

#include "RuntimeFolder.h"

#include <QtEndian>

#include <cerrno>
#include <fcntl.h>
#include <sys/time.h>

namespace
{

constexpr timeval BUSY_WAIT{2, 0};

/// Makes a socket wait where it has to, at most for `limit`; 0 is no limit.
bool MakeBlocking(int socket, const timeval &limit)
{
    const int flags = fcntl(socket, F_GETFL);
    return flags >= 0 && fcntl(socket, F_SETFL, flags & ~O_NONBLOCK) == 0 &&
           setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit) == 0;
}

} // namespace

bool ReportPipe::Open()
{
    Close();
    QString error;
    const QByteArray path = SocketPath(PIPE_SOCKET, error);
    if (path.isEmpty())
        return false;
    FileHandle socket = MakeSocket(SOCK_NONBLOCK);
    if (!socket.IsOpen())
        return false;
    int failure = ConnectSocket(socket, path);
    if (failure == EAGAIN) { // busy: now let the system wait for a place in the backlog
        if (!MakeBlocking(socket.Get(), BUSY_WAIT))
            return false;
        failure = ConnectSocket(socket, path);
    }
    if (failure != 0 || !IsSameUser(socket.Get()) || !MakeBlocking(socket.Get(), timeval{0, 0}))
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
        broken = !SendAll(connection.Get(), held.constData(), size_t(held.size()));
    held.clear();
}
