// SPDX-License-Identifier: MIT
#include "SingleInstance.h"

#include "LocalSocket.h"
#include "RuntimeFolder.h"

#include <QDeadlineTimer>
#include <QtEndian>

#include <array>
#include <cerrno>
#include <poll.h>

namespace
{

FirstInstance Hangs(QString &error)
{
    error = QStringLiteral("Morvanite is running already, but it doesn't answer. It may be busy with a long command: "
                           "wait for it to finish, or end its process if it never answers.");
    return FirstInstance::NoAnswer;
}

/// Connects the socket. Returns 0 or an error number. Tries again until the deadline while the other end's queue is
/// full; never blocks otherwise.
int Connect(const FileHandle &socket, const std::string &path, const QDeadlineTimer &deadline)
{
    int failure = ConnectSocket(socket, path);
    while (failure == EAGAIN && !deadline.hasExpired()) {
        (void)poll(nullptr, 0, 50);
        failure = ConnectSocket(socket, path);
    }
    return failure;
}

} // namespace

FirstInstance ShowFirstInstance(int milliseconds, QString &error)
{
    const QDeadlineTimer deadline(milliseconds);
    std::string why;
    const std::string path = SocketPath(WINDOW_SOCKET, why);
    if (path.empty()) {
        error = QString::fromStdString(why);
        return FirstInstance::NoAnswer;
    }
    const FileHandle window = MakeSocket(SOCK_NONBLOCK);
    if (const int failure = Connect(window, path, deadline); failure == EAGAIN)
        return Hangs(error);
    else if (failure != 0)
        return FirstInstance::None;

    std::array<char, 8> message{};
    qToLittleEndian<quint32>(COMMAND_SHOW, message.data());
    if (!SendAll(window.Get(), message.data(), message.size()))
        return FirstInstance::None; // it has ended meanwhile
    std::array<char, 4> answer{};
    size_t received = 0;
    while (received < answer.size()) {
        pollfd waits{window.Get(), POLLIN, 0};
        const int count = poll(&waits, 1, int(qMax<qint64>(deadline.remainingTime(), 0)));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return Hangs(error);
        const ssize_t size = recv(window.Get(), answer.data() + received, answer.size() - received, 0);
        if (size == 0 || (size < 0 && errno != EAGAIN && errno != EINTR))
            return FirstInstance::None;
        received += size > 0 ? size_t(size) : 0;
    }
    if (qFromLittleEndian<quint32>(answer.data()) == WINDOW_SHOWN)
        return FirstInstance::Shown;
    error = QStringLiteral("A program without a window, such as \"morvanite-cli serve\", runs in place of Morvanite. "
                           "End that program first.");
    return FirstInstance::NoAnswer;
}
