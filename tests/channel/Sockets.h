// SPDX-License-Identifier: MIT
#pragma once

#include "LocalSocket.h"
#include "RuntimeFolder.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <poll.h>
#include <unistd.h>

/// A runtime folder for one test, removed with the object.
class TestRuntime
{
public:
    TestRuntime() { qputenv("MORVANITE_RUNTIME_DIR", Path()); }
    ~TestRuntime() { qunsetenv("MORVANITE_RUNTIME_DIR"); }

    [[nodiscard]] QByteArray Path(const char *name = "") const
    {
        return folder.filePath(QString::fromUtf8(name)).toLocal8Bit();
    }

private:
    QTemporaryDir folder;
};

/// Returns a socket that listens without a lock, like another program's, with room for one client more than `backlog`.
/// The socket file remains like that of a killed program, and nobody answers.
inline FileHandle ListenAt(const QByteArray &path, int backlog = 0)
{
    FileHandle listener = MakeSocket();
    const sockaddr_un address = SocketAddress(path.toStdString());
    EXPECT_EQ(bind(listener.Get(), reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    EXPECT_EQ(listen(listener.Get(), backlog), 0);
    return listener;
}

inline FileHandle AcceptAt(const FileHandle &listener)
{
    return FileHandle(accept(listener.Get(), nullptr, nullptr));
}

inline FileHandle ConnectTo(const QByteArray &path)
{
    FileHandle connection = MakeSocket();
    EXPECT_EQ(ConnectSocket(connection, path.toStdString()), 0);
    return connection;
}

/// Returns all bytes until the other end closes.
inline QByteArray ReadAll(const FileHandle &connection, int flags = 0)
{
    QByteArray all;
    char bytes[4096];
    ssize_t size = 0;
    while ((size = recv(connection.Get(), bytes, sizeof bytes, flags)) > 0)
        all.append(bytes, size);
    return all;
}

/// Returns the bytes that are available without waiting.
inline QByteArray ReadNow(const FileHandle &connection)
{
    return ReadAll(connection, MSG_DONTWAIT);
}

inline void SendBytes(const FileHandle &connection, const QByteArray &bytes)
{
    EXPECT_TRUE(SendAll(connection.Get(), bytes.constData(), size_t(bytes.size())));
}
