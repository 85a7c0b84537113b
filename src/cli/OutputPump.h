#pragma once

#include "HostFiles.h"

#include <QByteArray>

#include <thread>

/// Hands what is written to `Input` on to a file whose reader may be slow or asleep, so that nobody who writes has to
/// wait for that reader.
///
/// Keeps up to KEPT_BYTES that the file has no room for. Lines beyond that are left out; when there is room again, a
/// line says how many. It has a thread of its own, which uses nothing else of the program: make it when the signals
/// that the program waits for are blocked.
///
///     OutputPump pump(FileHandle(dup(STDERR_FILENO)));
///     dup2(pump.Input(), STDERR_FILENO);
class OutputPump
{
public:
    static constexpr qsizetype KEPT_BYTES = 256 * 1024;

    /// `file` is what can be waited for: a pipe, a terminal, a socket. Its flags, which other programs share, stay.
    explicit OutputPump(FileHandle file);
    /// Hands on what is left, as long as the reader takes something, and ends the thread.
    ~OutputPump();
    OutputPump(const OutputPump &) = delete;
    OutputPump &operator=(const OutputPump &) = delete;

    /// What to write to; a pipe. -1 when the system gave none.
    [[nodiscard]] int Input() const { return input.Get(); }

    /// True for what a write can wait for: no file on a disk.
    [[nodiscard]] static bool CanWait(int descriptor);

private:
    void Run();
    void Take();
    void Keep(const QByteArray &line);
    void TellDropped();
    [[nodiscard]] bool Give();

    FileHandle target;
    bool isSocket = false;
    bool isOwn = false; // target has flags of its own: no write to it waits
    FileHandle input;
    FileHandle output; // the other end of it
    FileHandle ending; // readable once the pump is to end
    QByteArray line;   // the start of one
    QByteArray kept;
    int dropped = 0; // lines since the last one that was kept
    std::thread thread;
};
