// SPDX-License-Identifier: MIT
#include "LocalSocket.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

QString SystemErrorText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

sockaddr_un SocketAddress(const QByteArray &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const size_t size = qMin(size_t(path.size()), sizeof address.sun_path - 1);
    std::memcpy(address.sun_path, path.constData(), size);
    return address;
}

FileHandle MakeSocket(int flags)
{
    return FileHandle(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
}

int ConnectSocket(const FileHandle &socket, const QByteArray &path)
{
    const sockaddr_un address = SocketAddress(path);
    while (connect(socket.Get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) {
        if (errno != EINTR)
            return errno;
    }
    return 0;
}

bool IsSameUser(int connection)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

bool SendAll(int connection, const void *bytes, size_t size)
{
    const char *next = static_cast<const char *>(bytes);
    while (size > 0) {
        const ssize_t sent = send(connection, next, size, MSG_NOSIGNAL);
        if (sent < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        next += sent;
        size -= size_t(sent);
    }
    return true;
}

namespace
{

/// Takes the lock of a socket. The result isn't open, and `error` says why, if that fails.
FileHandle TakeLock(const QByteArray &path, ListeningSocket::Turn turn, QString &error)
{
    const QByteArray name = path + ".lock";
    FileHandle lock(open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!lock.IsOpen()) {
        error = u"the lock file %1 can't be opened: %2"_s.arg(QString::fromLocal8Bit(name), SystemErrorText(errno));
        return lock;
    }
    while (flock(lock.Get(), turn == ListeningSocket::Turn::Wait ? LOCK_EX : LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR)
            continue;
        error = errno == EWOULDBLOCK ? u"another program listens at %1"_s.arg(QString::fromLocal8Bit(path))
                                     : u"the lock file %1 can't be locked: %2"_s.arg(QString::fromLocal8Bit(name),
                                                                                     SystemErrorText(errno));
        return FileHandle();
    }
    return lock;
}

/// Removes the socket that a dead program left at `path`. Returns false, and `error` says why, if something else is
/// there.
bool RemoveStale(const QByteArray &path, QString &error)
{
    const QString shown = QString::fromLocal8Bit(path);
    struct stat info;
    if (lstat(path.constData(), &info) != 0) {
        if (errno == ENOENT)
            return true;
        error = u"%1 can't be examined: %2"_s.arg(shown, SystemErrorText(errno));
        return false;
    }
    if (!S_ISSOCK(info.st_mode)) {
        error = u"%1 is not a socket; remove it"_s.arg(shown);
        return false;
    }
    const FileHandle probe = MakeSocket(SOCK_NONBLOCK);
    const int answer = ConnectSocket(probe, path);
    if (answer == ENOENT)
        return true;
    if (answer != ECONNREFUSED) { // a full backlog (EAGAIN) means that a program listens, too
        error = u"another program listens at %1"_s.arg(shown);
        return false;
    }
    if (unlink(path.constData()) != 0 && errno != ENOENT) {
        error = u"%1 was left by a program that has ended, and it can't be removed: %2"_s.arg(shown,
                                                                                              SystemErrorText(errno));
        return false;
    }
    return true;
}

} // namespace

ListeningSocket::~ListeningSocket()
{
    struct stat info;
    if (listener.IsOpen() && lstat(path.constData(), &info) == 0 && info.st_dev == device && info.st_ino == inode)
        unlink(path.constData());
}

bool ListeningSocket::Open(const QByteArray &socketPath, Turn turn, QString &error)
{
    FileHandle newLock = TakeLock(socketPath, turn, error);
    if (!newLock.IsOpen() || !RemoveStale(socketPath, error))
        return false;
    FileHandle socket = MakeSocket(SOCK_NONBLOCK);
    const sockaddr_un address = SocketAddress(socketPath);
    struct stat info;
    if (!socket.IsOpen() || bind(socket.Get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
        chmod(socketPath.constData(), 0600) != 0 || lstat(socketPath.constData(), &info) != 0 ||
        listen(socket.Get(), SOMAXCONN) != 0) {
        error = u"the socket %1 can't be created: %2"_s.arg(QString::fromLocal8Bit(socketPath), SystemErrorText(errno));
        return false;
    }
    path = socketPath;
    device = info.st_dev;
    inode = info.st_ino;
    lock = std::move(newLock);
    listener = std::move(socket);
    return true;
}

FileHandle ListeningSocket::Accept() const
{
    for (;;) {
        FileHandle connection(accept4(listener.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (connection.IsOpen()) {
            if (IsSameUser(connection.Get()))
                return connection;
        } else if (errno != EINTR && errno != ECONNABORTED) {
            return connection;
        }
    }
}
