// SPDX-License-Identifier: MIT
#pragma once

#include "IdeCommandHandler.h"
#include "OutputStream.h"

/// A stream of the process as the destination of a report and of Qt's texts. Text for a closed stream is silently
/// dropped.
class StandardOutput final : public IReportPipe, private OutputStream
{
public:
    using OutputStream::OutputStream;

    bool Open() override { return isOpen = true; }
    [[nodiscard]] bool IsOpen() const override { return isOpen; }
    /// See OutputStream::WriteReport.
    void Write(QStringView text) override { WriteReport(ViewOf(text.toUtf8())); }
    /// See OutputStream::Write.
    void Print(QStringView text) { WriteBytes(text.toUtf8()); }
    /// Prints a plan, which was asked for, or writes what was done.
    void Tell(QStringView text, bool isPlan) { isPlan ? Print(text) : Write(text); }
    /// The same as Print for text that is UTF-8 already.
    void WriteBytes(QByteArrayView bytes) { OutputStream::Write(ViewOf(bytes)); }
    void Flush() override { OutputStream::Flush(); }
    void Close() override
    {
        Flush();
        isOpen = false;
    }

    using OutputStream::hasOnlyProblems;
    using OutputStream::IsBroken;

private:
    static std::string_view ViewOf(QByteArrayView bytes) { return {bytes.data(), size_t(bytes.size())}; }

    bool isOpen = false;
};
