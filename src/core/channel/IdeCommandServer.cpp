// SPDX-License-Identifier: MIT
#include "IdeCommandServer.h"

#include "RuntimeFolder.h"

#include <QScopedValueRollback>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>

namespace
{

constexpr quint64 LISTENER_ID = 0;
constexpr quint64 READY_ID = 1;
constexpr quint32 HEADER_SIZE = 8;
constexpr quint32 ANSWER_SIZE = 4;

} // namespace

struct IdeCommandServer::Connection
{
    enum class State
    {
        Receiving,
        Ready,
        Answering,
    };

    FileHandle socket;
    Watched watch;
    State state = State::Receiving;
    quint64 lastActivity = 0;
    std::array<char, HEADER_SIZE> header{};
    quint32 received = 0; // of header and record together
    QByteArray record;
    std::array<char, ANSWER_SIZE> answer{};
    quint32 answered = 0;

    [[nodiscard]] quint32 IdeCommand() const { return qFromLittleEndian<quint32>(header.data()); }
    [[nodiscard]] quint32 RecordSize() const { return qFromLittleEndian<quint32>(header.data() + 4); }

    void BeginAnswer(int result)
    {
        qToLittleEndian<qint32>(result, answer.data());
        answered = 0;
        received = 0;
        record = QByteArray();
        state = State::Answering;
    }
};

IdeCommandServer::IdeCommandServer(Runner commandRunner) : runner(std::move(commandRunner)), lastId(READY_ID)
{
    listenerWatch.id = LISTENER_ID;
    readyWatch.id = READY_ID;
}

IdeCommandServer::~IdeCommandServer() = default;

bool IdeCommandServer::Listen(QString &error)
{
    std::string why;
    const std::string path = SocketPath(WINDOW_SOCKET, why);
    if (path.empty() || !listener.Open(path, ListeningSocket::Turn::Now, why)) {
        error = QString::fromStdString(why);
        return false;
    }
    epoll = FileHandle(epoll_create1(EPOLL_CLOEXEC));
    readyEvent = FileHandle(eventfd(1, EFD_CLOEXEC | EFD_NONBLOCK));
    spare = FileHandle(open("/dev/null", O_RDONLY | O_CLOEXEC));
    if (!epoll.IsOpen() || !readyEvent.IsOpen()) {
        error = QStringLiteral("cannot create the descriptors of the command channel: ") +
                QString::fromStdString(SystemErrorText(errno));
        epoll = FileHandle();
        return false;
    }
    WatchAll();
    return true;
}

void IdeCommandServer::SetPaused(bool pause)
{
    paused = pause;
    WatchAll();
}

void IdeCommandServer::Dispatch()
{
    if (!epoll.IsOpen())
        return;
    struct Guard
    {
        IdeCommandServer &server;
        ~Guard() { server.WatchAll(); }
    } guard{*this};

    std::array<epoll_event, 64> events;
    const int count = epoll_wait(epoll.Get(), events.data(), int(events.size()), 0);
    for (int i = 0; i < count; ++i) {
        const quint64 id = events[size_t(i)].data.u64;
        if (id == LISTENER_ID)
            AcceptWaiting();
        else if (id != READY_ID)
            Serve(id);
    }
    if (!isRunning && !paused)
        RunNext();
}

void IdeCommandServer::Watch(int descriptor, Watched &state, quint32 events) const
{
    if (state.watched == events || !epoll.IsOpen())
        return;
    epoll_event event{};
    event.events = events;
    event.data.u64 = state.id;
    const int operation = events == 0 ? EPOLL_CTL_DEL : state.watched == 0 ? EPOLL_CTL_ADD : EPOLL_CTL_MOD;
    if (epoll_ctl(epoll.Get(), operation, descriptor, &event) == 0)
        state.watched = events;
}

void IdeCommandServer::WatchConnection(Connection &connection) const
{
    quint32 events = 0;
    if (connection.state == Connection::State::Receiving)
        events = EPOLLIN;
    else if (connection.state == Connection::State::Answering)
        events = EPOLLOUT;
    Watch(connection.socket.Get(), connection.watch, events);
}

void IdeCommandServer::WatchAll()
{
    const bool full = ready.size() >= CONNECTION_LIMIT; // no connection can be closed for a new one
    Watch(listener.Get(), listenerWatch, full ? 0 : quint32(EPOLLIN));
    Watch(readyEvent.Get(), readyWatch, paused || ready.empty() ? 0 : quint32(EPOLLIN));
    for (auto &[id, connection] : connections)
        WatchConnection(*connection);
}

void IdeCommandServer::AcceptWaiting()
{
    for (size_t i = 0; i < CONNECTION_LIMIT && ready.size() < CONNECTION_LIMIT; ++i) { // then others get their turn
        FileHandle socket = listener.Accept();
        if (!socket.IsOpen() && (errno == EMFILE || errno == ENFILE)) {
            spare = FileHandle();
            { // refuses one connection, which would otherwise be reported for ever
                const FileHandle refused = listener.Accept();
            }
            spare = FileHandle(open("/dev/null", O_RDONLY | O_CLOEXEC));
            return;
        }
        if (!socket.IsOpen())
            return;
        if (connections.size() >= CONNECTION_LIMIT)
            MakeRoom();
        Connection &connection = *(connections[++lastId] = std::make_unique<Connection>());
        connection.socket = std::move(socket);
        connection.watch.id = lastId;
        WatchConnection(connection);
        Serve(lastId); // now, since a peer that has sent a whole command isn't closed for a new one
    }
}

void IdeCommandServer::MakeRoom()
{
    auto silent = connections.end();
    for (auto it = connections.begin(); it != connections.end(); ++it) {
        if (it->second->state != Connection::State::Ready &&
            (silent == connections.end() || it->second->lastActivity < silent->second->lastActivity))
            silent = it;
    }
    if (silent != connections.end())
        connections.erase(silent);
}

void IdeCommandServer::Serve(quint64 id)
{
    const auto found = connections.find(id);
    if (found == connections.end())
        return; // closed since it was reported
    Connection &connection = *found->second;
    connection.lastActivity = ++activity;
    Progress progress = Progress::More;
    while (progress == Progress::More) {
        if (connection.state == Connection::State::Receiving)
            progress = Receive(connection);
        else if (connection.state == Connection::State::Answering)
            progress = SendAnswer(connection);
        else
            break;
    }
    if (progress == Progress::Gone)
        connections.erase(found);
}

IdeCommandServer::Progress IdeCommandServer::Receive(Connection &connection)
{
    const bool inHeader = connection.received < HEADER_SIZE;
    char *to = inHeader ? connection.header.data() + connection.received
                        : connection.record.data() + (connection.received - HEADER_SIZE);
    const quint32 wanted =
        inHeader ? HEADER_SIZE - connection.received : connection.RecordSize() - (connection.received - HEADER_SIZE);
    const ssize_t size = recv(connection.socket.Get(), to, wanted, 0);
    if (size < 0)
        return errno == EAGAIN ? Progress::Wait : errno == EINTR ? Progress::More : Progress::Gone;
    if (size == 0)
        return Progress::Gone;
    connection.received += quint32(size);
    if (connection.received == HEADER_SIZE) {
        if (connection.RecordSize() > RECORD_LIMIT)
            return Progress::Gone;
        connection.record.resize(qsizetype(connection.RecordSize()));
    }
    if (connection.received >= HEADER_SIZE && connection.received - HEADER_SIZE == connection.RecordSize()) {
        Arrived(connection);
    }
    return Progress::More;
}

void IdeCommandServer::Arrived(Connection &connection)
{
    if (waitsForNothing && waitsForNothing(connection.IdeCommand())) {
        connection.BeginAnswer(runner(connection.IdeCommand(), connection.record));
    } else {
        connection.state = Connection::State::Ready;
        ready.push_back(connection.watch.id);
    }
}

IdeCommandServer::Progress IdeCommandServer::SendAnswer(Connection &connection)
{
    const ssize_t size = send(connection.socket.Get(), connection.answer.data() + connection.answered,
                              ANSWER_SIZE - connection.answered, MSG_NOSIGNAL);
    if (size < 0)
        return errno == EAGAIN ? Progress::Wait : errno == EINTR ? Progress::More : Progress::Gone;
    connection.answered += quint32(size);
    if (connection.answered == ANSWER_SIZE) {
        connection.state = Connection::State::Receiving;
        return Progress::Wait; // its next command runs after those of others
    }
    return Progress::More;
}

void IdeCommandServer::RunNext()
{
    if (ready.empty())
        return;
    const quint64 id = ready.front();
    ready.pop_front();
    Connection &connection = *connections.at(id); // a connection with a command is never closed by others
    const QScopedValueRollback running(isRunning, true);
    try {
        connection.BeginAnswer(runner(connection.IdeCommand(), connection.record));
    } catch (...) {
        connections.erase(id);
        throw;
    }
    Serve(id);
}
