// SPDX-License-Identifier: MIT
#include "LocalSocket.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

std::string SystemErrorText(int number)
{
    return std::strerror(number);
}

sockaddr_un SocketAddress(const std::string &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const size_t size = std::min(path.size(), sizeof address.sun_path - 1);
    std::memcpy(address.sun_path, path.c_str(), size);
    return address;
}

FileHandle MakeSocket(int flags)
{
    return FileHandle(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
}

int ConnectSocket(const FileHandle &socket, const std::string &path)
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
FileHandle TakeLock(const std::string &path, ListeningSocket::Turn turn, std::string &error)
{
    const std::string name = path + ".lock";
    FileHandle lock(open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!lock.IsOpen()) {
        error = "the lock file " + name + " can't be opened: " + SystemErrorText(errno);
        return lock;
    }
    while (flock(lock.Get(), turn == ListeningSocket::Turn::Wait ? LOCK_EX : LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR)
            continue;
        error = errno == EWOULDBLOCK ? "another program listens at " + path
                                     : "the lock file " + name + " can't be locked: " + SystemErrorText(errno);
        return FileHandle();
    }
    return lock;
}

/// Removes the socket that a dead program left at `path`. Returns false, and `error` says why, if something else is
/// there.
bool RemoveStale(const std::string &path, std::string &error)
{
    struct stat info;
    if (lstat(path.c_str(), &info) != 0) {
        if (errno == ENOENT)
            return true;
        error = path + " can't be examined: " + SystemErrorText(errno);
        return false;
    }
    if (!S_ISSOCK(info.st_mode)) {
        error = path + " is not a socket; remove it";
        return false;
    }
    const FileHandle probe = MakeSocket(SOCK_NONBLOCK);
    const int answer = ConnectSocket(probe, path);
    if (answer == ENOENT)
        return true;
    if (answer != ECONNREFUSED) { // a full backlog (EAGAIN) means that a program listens, too
        error = "another program listens at " + path;
        return false;
    }
    if (unlink(path.c_str()) != 0 && errno != ENOENT) {
        error = path + " was left by a program that has ended, and it can't be removed: " + SystemErrorText(errno);
        return false;
    }
    return true;
}

} // namespace

ListeningSocket::~ListeningSocket()
{
    struct stat info;
    if (listener.IsOpen() && lstat(path.c_str(), &info) == 0 && info.st_dev == device && info.st_ino == inode)
        unlink(path.c_str());
}

bool ListeningSocket::Open(const std::string &socketPath, Turn turn, std::string &error)
{
    FileHandle newLock = TakeLock(socketPath, turn, error);
    if (!newLock.IsOpen() || !RemoveStale(socketPath, error))
        return false;
    FileHandle socket = MakeSocket(SOCK_NONBLOCK);
    const sockaddr_un address = SocketAddress(socketPath);
    struct stat info;
    if (!socket.IsOpen() || bind(socket.Get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
        chmod(socketPath.c_str(), 0600) != 0 || lstat(socketPath.c_str(), &info) != 0 ||
        listen(socket.Get(), SOMAXCONN) != 0) {
        error = "the socket " + socketPath + " can't be created: " + SystemErrorText(errno);
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
