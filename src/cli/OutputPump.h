// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"

#include <QByteArray>

#include <thread>

/// Passes what is written to `Input` on to a file whose reader may be slow or asleep, so that writers never wait for
/// that reader.
///
/// Keeps up to KEPT_BYTES that the file has no room for. Further lines are dropped; once there is room again, a line
/// says how many. It has a thread of its own, which uses nothing else of the program. Construct it while the signals
/// that the program waits for are blocked.
///
///     OutputPump pump(FileHandle(dup(STDERR_FILENO)));
///     dup2(pump.Input(), STDERR_FILENO);
class OutputPump
{
public:
    static constexpr qsizetype KEPT_BYTES = 256 * 1024;

    /// `file` can be waited for: it is a pipe, a terminal or a socket. Its flags, which other programs share, aren't
    /// changed.
    explicit OutputPump(FileHandle file);
    /// Writes the rest as long as the reader accepts it, and ends the thread.
    ~OutputPump();
    OutputPump(const OutputPump &) = delete;
    OutputPump &operator=(const OutputPump &) = delete;

    /// The pipe to write to; -1 if the system couldn't make one.
    [[nodiscard]] int Input() const { return input.Get(); }

    /// True if a write to it can wait: false for a file on a disk.
    [[nodiscard]] static bool CanWait(int descriptor);

private:
    void Run();
    void Take();
    void Keep(const QByteArray &line);
    void TellDropped();
    [[nodiscard]] bool Give();

    FileHandle target;
    bool isSocket = false;
    bool isOwn = false; // target has flags of its own, so no write to it waits
    FileHandle input;
    FileHandle output; // the other end of it
    FileHandle ending; // readable once the pump must end
    QByteArray line;   // the beginning of an incomplete line
    QByteArray kept;
    int dropped = 0; // lines since the last one that was kept
    std::thread thread;
};
