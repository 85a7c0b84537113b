#pragma once

#include "LocalSocket.h"

#include <deque>
#include <functional>
#include <memory>
#include <unordered_map>

/// The main window's place in the runtime folder, where commands arrive.
///
/// A command is `dwData` and `cbData`, 32 bits little-endian each, and `cbData` bytes; the answer, once it has run, is
/// the runner's result in 32 bits. A connection may send one after another. All of it is non-blocking and behind one
/// descriptor: when `PollFd` is readable, call `Dispatch`. A poll loop serves it as well as a window's event loop.
///
/// Peers of other users are refused. A peer that is slow, silent or gone holds up nobody: beyond `CONNECTION_LIMIT`
/// peers the one that has been silent for longest, with no command waiting, is closed. Main thread only.
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

    /// Begins to listen at the socket of `WINDOW_SOCKET`. False, and `error` says why, when another program does or the
    /// socket can't be made.
    [[nodiscard]] bool Listen(QString &error);

    /// Readable when there is something to do; -1 before `Listen`.
    [[nodiscard]] int PollFd() const { return epoll.Get(); }

    /// Does what can be done without waiting, and runs one command at most, so that the caller's loop gets its turn.
    /// Inside a command and while paused it runs only those that wait for nothing. What the runner throws goes through,
    /// and the connection is closed without an answer.
    void Dispatch();

    /// Holds commands back while a modal box is open. Peers wait.
    void SetPaused(bool pause);

    /// Says which commands run as soon as they have arrived, whatever else runs or waits: those that touch no document.
    /// Their runner throws nothing. May be empty.
    std::function<bool(quint32 dwData)> waitsForNothing;

    [[nodiscard]] size_t ConnectionCount() const { return connections.size(); }

private:
    /// A descriptor in the epoll set; out of it while `watched` is 0, since a hang-up is reported without being asked
    /// for.
    struct Watched
    {
        quint64 id = 0;
        quint32 watched = 0;
    };
    struct Connection;
    enum class Progress
    {
        More, ///< something was moved: try again
        Wait, ///< nothing to be had now
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
    FileHandle spare;      // given up to refuse a connection when descriptors run out
    ListeningSocket listener;
    Watched listenerWatch;
    Watched readyWatch;
    std::unordered_map<quint64, std::unique_ptr<Connection>> connections;
    std::deque<quint64> ready; // connections with a whole command, in order of arrival
    quint64 lastId;
    quint64 activity = 0; // counts up with every sign of life of a peer
    bool paused = false;
    bool isRunning = false;
};
