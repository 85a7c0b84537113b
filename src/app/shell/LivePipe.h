#pragma once

#include "IdeCommandHandler.h"

#include <QElapsedTimer>

/// An IDE's pipe that lets the window draw itself while a command runs: at each text, but not more often than is of
/// use.
class LivePipe : public IReportPipe
{
public:
    /// Called then too, for what must not wait for the command's end; may be empty.
    std::function<void()> serveMeanwhile;

    explicit LivePipe(IReportPipe &idePipe) : pipe(idePipe) {}

    bool Open() override { return pipe.Open(); }
    [[nodiscard]] bool IsOpen() const override { return pipe.IsOpen(); }
    void Write(QStringView text) override;
    void Flush() override;
    void Close() override { pipe.Close(); }

    /// Lets the window draw itself and answer the desktop. What the user does meanwhile is the window's to refuse.
    void Breathe();
    /// Events are delivered in the middle of what the program does, such as loading or saving a project.
    [[nodiscard]] bool IsBreathing() const { return isBreathing; }

private:
    IReportPipe &pipe;
    bool isBreathing = false;
    QElapsedTimer last;
};
