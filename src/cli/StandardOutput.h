#pragma once

#include "IdeCommandHandler.h"

/// A report on a stream of the process, as UTF-8. What a closed one can't take is dropped quietly.
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
    /// Some of it couldn't be written.
    [[nodiscard]] bool IsBroken() const { return broken; }

private:
    int fd;
    bool open = false;
    bool broken = false;
    QByteArray held;
    qint64 heldSince = 0; // milliseconds of a steady clock
};
