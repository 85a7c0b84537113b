// SPDX-License-Identifier: MIT
#pragma once

#include "IdeCommandHandler.h"

/// Writes a report to a stream of the process, as UTF-8. Text for a closed stream is silently dropped.
class StandardOutput final : public IReportPipe
{
public:
    explicit StandardOutput(int descriptor) : fd(descriptor) {}
    ~StandardOutput() override;

    bool Open() override;
    [[nodiscard]] bool IsOpen() const override { return open; }
    void Write(QStringView text) override;
    void WriteBytes(QByteArrayView bytes);
    void Flush() override;
    void Close() override;
    /// Whether lines of a report that are neither an error nor a warning are left out.
    bool hasOnlyProblems = false;

    /// True if some of the text couldn't be written.
    [[nodiscard]] bool IsBroken() const { return broken; }

private:
    void Hold(QByteArrayView bytes);

    int fd;
    bool open = false;
    bool broken = false;
    QByteArray held;
    QByteArray begun;     // the last line as far as it is known, while only problems are wanted
    qint64 heldSince = 0; // milliseconds of a steady clock
};
