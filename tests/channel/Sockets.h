#pragma once

#include "LocalSocket.h"
#include "RuntimeFolder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <poll.h>
#include <unistd.h>

/// A runtime folder of the test's own, gone with the object.
class TestRuntime
{
public:
    TestRuntime() { qputenv("MORVANITE_RUNTIME_DIR", folder.path().toLocal8Bit()); }
    ~TestRuntime() { qunsetenv("MORVANITE_RUNTIME_DIR"); }

    [[nodiscard]] QByteArray Path(const char *name) const { return folder.path().toLocal8Bit() + '/' + name; }

private:
    QTemporaryDir folder;
};

/// A socket that listens without any lock, as another program's would.
inline FileHandle ListenAt(const QByteArray &path, int backlog = 16)
{
    FileHandle listener = MakeSocket();
    const sockaddr_un address = SocketAddress(path);
    EXPECT_EQ(bind(listener.Get(), reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    EXPECT_EQ(listen(listener.Get(), backlog), 0);
    return listener;
}

/// What a program that was killed leaves: a socket with nobody behind it.
inline void LeaveStaleSocket(const QByteArray &path)
{
    ListenAt(path);
}

inline FileHandle ConnectTo(const QByteArray &path)
{
    FileHandle connection = MakeSocket();
    EXPECT_EQ(ConnectSocket(connection, path), 0);
    return connection;
}

inline bool IsReadable(int descriptor)
{
    pollfd wait{descriptor, POLLIN, 0};
    return poll(&wait, 1, 0) == 1;
}

/// What can be read now, without waiting.
inline QByteArray ReadNow(const FileHandle &connection)
{
    QByteArray all;
    char bytes[4096];
    ssize_t size = 0;
    while ((size = recv(connection.Get(), bytes, sizeof bytes, MSG_DONTWAIT)) > 0)
        all.append(bytes, size);
    return all;
}

/// Says whether the other end has closed the connection.
inline bool IsClosed(const FileHandle &connection)
{
    char byte = 0;
    const ssize_t size = recv(connection.Get(), &byte, 1, MSG_DONTWAIT | MSG_PEEK);
    return size == 0 || (size < 0 && errno == ECONNRESET);
}

/// All that comes until the other end closes; waits.
inline QByteArray ReadToEnd(const FileHandle &connection)
{
    QByteArray all;
    char bytes[4096];
    ssize_t size = 0;
    while ((size = recv(connection.Get(), bytes, sizeof bytes, 0)) > 0)
        all.append(bytes, size);
    return all;
}

inline QString FromUtf16(const QByteArray &bytes)
{
    return QString(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2);
}

/// A command as it travels.
inline QByteArray Message(quint32 dwData, const QByteArray &record)
{
    const quint32 header[2] = {dwData, quint32(record.size())};
    return QByteArray(reinterpret_cast<const char *>(header), sizeof header) + record;
}

inline void SendBytes(const FileHandle &connection, const QByteArray &bytes)
{
    EXPECT_TRUE(SendAll(connection.Get(), bytes.constData(), size_t(bytes.size())));
}
