// SPDX-License-Identifier: MIT
#pragma once

#include "CommandRecord.h"
#include "IdeCommandClient.h"
#include "TestWindow.h"

#include <atomic>
#include <thread>

/// Sends a command as an IDE does, while the window processes events. Returns the report.
inline std::string Send(quint32 command, const std::string &record)
{
    QString report;
    std::string error;
    std::atomic<bool> isOver = false;
    std::thread ide([&] {
        (void)IdeCommandClient::Run(
            command, record, [&](std::u16string_view text) { report += text; }, error);
        isOver = true;
    });
    EXPECT_TRUE(TestWindow::WaitFor([&] { return isOver.load(); }));
    ide.join();
    return report.toStdString() + error;
}

inline std::string RecordOf(const QString &path)
{
    std::string error;
    return BuildRecord(CommandRecord{path.toStdU16String()}, error).value();
}
