// SPDX-License-Identifier: MIT
#pragma once

#include "IdeCommandHandler.h"

/// Writes to a stream of the process, as UTF-8. Text for a closed stream is silently dropped.
class StandardOutput final : public IReportPipe
{
public:
    explicit StandardOutput(int descriptor) : fd(descriptor) {}
    ~StandardOutput() override;

    bool Open() override;
    [[nodiscard]] bool IsOpen() const override { return open; }
    /// Writes a part of a report, which says what a command does. With hasOnlyProblems, only whole lines are written.
    void Write(QStringView text) override;
    /// Writes what the user has asked for, such as a list. hasOnlyProblems doesn't matter.
    void Print(QStringView text) { WriteBytes(text.toUtf8()); }
    /// Prints a plan, which was asked for, or writes what was done.
    void Tell(QStringView text, bool isPlan) { isPlan ? Print(text) : Write(text); }
    /// The same for text that is UTF-8 already.
    void WriteBytes(QByteArrayView bytes);
    void Flush() override;
    void Close() override;
    /// Leaves out the lines of a report that are neither an error nor a warning.
    bool hasOnlyProblems = false;

    /// True if some of the text couldn't be written.
    [[nodiscard]] bool IsBroken() const { return broken; }

private:
    void WriteOut(QByteArrayView bytes);

    int fd;
    bool open = false;
    bool broken = false;
    QByteArray held;
    QByteArray begun;     // the last line as far as it is known, while only problems are wanted
    qint64 heldSince = 0; // milliseconds of a steady clock
};
