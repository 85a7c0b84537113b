// SPDX-License-Identifier: MIT
#pragma once

#include "IdeCommandHandler.h"
#include "LocalSocket.h"

#include <chrono>

/// The report pipe to an IDE: a stream socket that the IDE serves, written as UTF-16LE without framing or terminator.
///
/// Each line costs a system call, so many lines are gathered. The first lines after `Open` or `Flush` are sent at once.
/// Later lines wait until there are 32 KiB, until a line is written more than 50 ms later, or until `Flush` or `Close`.
class ReportPipe : public IReportPipe
{
public:
    /// `endRequest`: a descriptor that becomes readable when the program must end; a write that waits for an IDE is
    /// then abandoned. -1: none. Not owned.
    explicit ReportPipe(int endRequest = -1) : ending(endRequest) {}

    /// Connects to the socket `PIPE_SOCKET`. If the IDE's backlog is full, waits up to 2000 ms for a place.
    bool Open() override;
    [[nodiscard]] bool IsOpen() const override { return connection.IsOpen(); }
    void Write(QStringView text) override;
    void Flush() override;
    void Close() override;

    static constexpr int LINES_AT_ONCE = 64;
    static constexpr qsizetype GATHERED_BYTES = 32 * 1024;
    static constexpr std::chrono::milliseconds LONGEST_HOLD{50};

private:
    void Send();
    [[nodiscard]] bool SendHeld();
    [[nodiscard]] bool WaitForRoom() const;

    int ending;
    FileHandle connection;
    QByteArray held;
    std::chrono::steady_clock::time_point heldSince;
    int linesAtOnce = 0; // the number of lines that are still sent without delay
    bool broken = false;
};
