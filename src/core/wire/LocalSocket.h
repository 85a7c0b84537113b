// SPDX-License-Identifier: MIT
#pragma once

#include "FileHandle.h"

#include <string>
#include <sys/socket.h>
#include <sys/types.h>
#include <sys/un.h>

/// The text of a system error number.
[[nodiscard]] std::string SystemErrorText(int number);

/// The address of a path, which must have come from `SocketPath`.
[[nodiscard]] sockaddr_un SocketAddress(const std::string &path);

/// A stream socket that is closed in child processes.
[[nodiscard]] FileHandle MakeSocket(int flags = 0);

/// Connects. Returns 0, or the system's error number. Continues after interrupts.
[[nodiscard]] int ConnectSocket(const FileHandle &socket, const std::string &path);

/// True if the other end runs as this user.
[[nodiscard]] bool IsSameUser(int connection);

/// Sends all bytes and waits if necessary. Returns false if the other end is gone. Never raises a signal.
[[nodiscard]] bool SendAll(int connection, const void *bytes, size_t size);

/// A socket that listens at a path, protected by a lock file beside it ("path.lock"), so that only one of several
/// programs listens.
///
/// This object holds the lock as long as it lives: no program serves a socket whose lock is free, unless it answers.
/// The socket of a program that was killed is replaced; a socket that answers is never replaced. The lock file stays.
class ListeningSocket
{
public:
    enum class Turn
    {
        Now,  ///< fail if another program holds the lock
        Wait, ///< wait for it
    };

    ListeningSocket() = default;
    ~ListeningSocket();
    ListeningSocket(const ListeningSocket &) = delete;
    ListeningSocket &operator=(const ListeningSocket &) = delete;

    /// Returns false, and `error` says why, if another program listens or the socket can't be made.
    [[nodiscard]] bool Open(const std::string &path, Turn turn, std::string &error);
    /// The listening descriptor, which is non-blocking; -1 if not open.
    [[nodiscard]] int Get() const { return listener.Get(); }
    /// Accepts the next waiting connection of this user; those of other users are closed. The result isn't open, and
    /// errno has the reason, if there is none.
    [[nodiscard]] FileHandle Accept() const;

private:
    FileHandle lock;
    FileHandle listener;
    std::string path;
    dev_t device = 0;
    ino_t inode = 0;
};
