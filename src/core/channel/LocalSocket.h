#pragma once

#include "HostFiles.h"

#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>

/// The text of a system error number.
[[nodiscard]] QString SystemErrorText(int number);

/// The address of a path, which must have come from `SocketPath`.
[[nodiscard]] sockaddr_un SocketAddress(const QByteArray &path);

/// A stream socket, closed in children.
[[nodiscard]] FileHandle MakeSocket(int flags = 0);

/// Connects; 0, or the system's error number. Goes on after interrupts.
[[nodiscard]] int ConnectSocket(const FileHandle &socket, const QByteArray &path);

/// Says whether the other end runs as this user.
[[nodiscard]] bool IsSameUser(int connection);

/// Sends all of it, waiting where need be; false when the other end is gone. Never raises a signal.
[[nodiscard]] bool SendAll(int connection, const void *bytes, size_t size);

/// A socket that listens at a path under a lock file beside it ("path.lock"), so that of several programs one listens.
///
/// The lock is held as long as this object lives: a socket whose lock is free has nobody behind it, unless it answers
/// all the same. What is left of a program that was killed is replaced; a socket that answers never is. The lock file
/// stays.
class ListeningSocket
{
public:
    enum class Turn
    {
        Now,  ///< fail while another holds the lock
        Wait, ///< wait for it
    };

    ListeningSocket() = default;
    ~ListeningSocket();
    ListeningSocket(const ListeningSocket &) = delete;
    ListeningSocket &operator=(const ListeningSocket &) = delete;

    /// False, and `error` says why, when another listens or the socket can't be made.
    [[nodiscard]] bool Open(const QByteArray &path, Turn turn, QString &error);
    /// The listening descriptor, non-blocking; -1 when not open.
    [[nodiscard]] int Get() const { return listener.Get(); }
    /// The next connection of this user's that waits; others are closed. Not open, and errno tells why, when there is
    /// none.
    [[nodiscard]] FileHandle Accept() const;

private:
    FileHandle lock;
    FileHandle listener;
    QByteArray path;
    dev_t device = 0;
    ino_t inode = 0;
};
