#pragma once

#include "IdeCommandHandler.h"
#include "LocalSocket.h"

#include <chrono>

/// The report pipe to an IDE: a stream socket that the IDE serves, written as UTF-16LE without framing or terminator.
///
/// Each line costs a system call, so a long run of lines is gathered: the first lines since `Open` or `Flush` go out at
/// once, the next wait until 32 KiB are together, until 50 ms have passed at the next line, or for `Flush` or `Close`.
class ReportPipe : public IReportPipe
{
public:
    /// `endRequest`: a descriptor that becomes readable when the program is to end; a write that an IDE leaves waiting
    /// is given up then. -1: none. Not owned.
    explicit ReportPipe(int endRequest = -1) : ending(endRequest) {}

    /// Connects to the socket of `PIPE_SOCKET`. Where the IDE's backlog is full, waits 2000 ms for a place.
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
    int linesAtOnce = 0; // how many more go out without delay
    bool broken = false;
};
