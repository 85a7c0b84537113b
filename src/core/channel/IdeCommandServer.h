// SPDX-License-Identifier: MIT
#pragma once

#include "LocalSocket.h"

#include <QByteArray>
#include <QString>

#include <deque>
#include <functional>
#include <memory>
#include <unordered_map>

/// The main window's socket in the runtime folder, which receives commands.
///
/// A command is `dwData` and `cbData`, 32 bits little-endian each, and `cbData` bytes; the answer, sent when it has
/// run, is the runner's result in 32 bits. A connection may send several commands, one after another. The server never
/// blocks and has one descriptor: call `Dispatch` when `PollFd` is readable. It works with a poll loop as well as with
/// a window's event loop.
///
/// Peers of other users are refused. A peer that is slow, silent or gone doesn't delay others. Beyond
/// `CONNECTION_LIMIT` peers, the one that has been silent for longest and has no command waiting is closed. Main thread
/// only.
class IdeCommandServer
{
public:
    /// Runs one command, inside `Dispatch`.
    using Runner = std::function<int(quint32 dwData, QByteArrayView record)>;

    static constexpr quint32 RECORD_LIMIT = 64 * 1024; ///< a longer record closes its connection
    static constexpr size_t CONNECTION_LIMIT = 256;

    explicit IdeCommandServer(Runner commandRunner);
    ~IdeCommandServer();
    IdeCommandServer(const IdeCommandServer &) = delete;
    IdeCommandServer &operator=(const IdeCommandServer &) = delete;

    /// Starts listening at the socket `WINDOW_SOCKET`. Returns false, and `error` says why, if another program already
    /// listens there or the socket can't be made.
    [[nodiscard]] bool Listen(QString &error);

    /// The descriptor that is readable when there is something to do; -1 before `Listen`.
    [[nodiscard]] int PollFd() const { return epoll.Get(); }

    /// Does what it can without waiting, and runs at most one command, so that the caller's loop can continue. Within a
    /// command and while paused it only runs commands that wait for nothing. An exception of the runner is passed on,
    /// and the connection is closed without an answer.
    void Dispatch();

    /// Delays commands while a modal box is open. Peers wait.
    void SetPaused(bool pause);

    /// Returns true for commands that run as soon as they arrive, whatever else runs or waits: those that use no
    /// document. Their runner doesn't throw. May be empty.
    std::function<bool(quint32 dwData)> waitsForNothing;

    [[nodiscard]] size_t ConnectionCount() const { return connections.size(); }

private:
    /// A descriptor of the epoll set. It is removed from the set while `watched` is 0, since a hang-up is always
    /// reported.
    struct Watched
    {
        quint64 id = 0;
        quint32 watched = 0;
    };
    struct Connection;
    enum class Progress
    {
        More, ///< data was moved: try again
        Wait, ///< nothing is available now
        Gone,
    };

    void Watch(int descriptor, Watched &state, quint32 events) const;
    void WatchAll();
    void WatchConnection(Connection &connection) const;
    void AcceptWaiting();
    void MakeRoom();
    void Serve(quint64 id);
    Progress Receive(Connection &connection);
    void Arrived(Connection &connection);
    static Progress SendAnswer(Connection &connection);
    void RunNext();

    Runner runner;
    FileHandle epoll;
    FileHandle readyEvent; // always readable; watched while commands are ready
    FileHandle spare;      // closed to refuse a connection when descriptors run out
    ListeningSocket listener;
    Watched listenerWatch;
    Watched readyWatch;
    std::unordered_map<quint64, std::unique_ptr<Connection>> connections;
    std::deque<quint64> ready; // connections with a whole command, in order of arrival
    quint64 lastId;
    quint64 activity = 0; // increases with every activity of a peer
    bool paused = false;
    bool isRunning = false;
};
