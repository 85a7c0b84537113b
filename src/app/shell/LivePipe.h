// SPDX-License-Identifier: MIT
#pragma once

#include "IdeCommandHandler.h"

#include <QElapsedTimer>

/// An IDE's pipe that lets the window repaint while a command runs: at each text, but not more often than is useful.
class LivePipe : public IReportPipe
{
public:
    /// Also called then, for work that must not wait for the end of the command. May be empty.
    std::function<void()> serveMeanwhile;

    explicit LivePipe(IReportPipe &idePipe) : pipe(idePipe) {}

    bool Open() override { return pipe.Open(); }
    [[nodiscard]] bool IsOpen() const override { return pipe.IsOpen(); }
    void Write(QStringView text) override;
    void Flush() override;
    void Close() override { pipe.Close(); }

    /// Lets the window repaint and answer the desktop. The window must discard user input meanwhile.
    void Breathe();
    /// Returns whether events are being delivered in the middle of an operation, such as loading or saving a project.
    [[nodiscard]] bool IsBreathing() const { return isBreathing; }

private:
    IReportPipe &pipe;
    bool isBreathing = false;
    QElapsedTimer last;
};
