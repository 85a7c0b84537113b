// SPDX-License-Identifier: MIT
#pragma once

#include "CommandRecord.h"
#include "IdeCommandClient.h"
#include "TestWindow.h"

#include <atomic>
#include <thread>

/// Sends a command as an IDE does, while the window processes events. Returns the report.
inline std::string Send(quint32 command, const QByteArray &record)
{
    QString report, error;
    std::atomic<bool> isOver = false;
    std::thread ide([&] {
        (void)IdeCommandClient::Run(
            command, record, [&](QStringView text) { report += text; }, error);
        isOver = true;
    });
    EXPECT_TRUE(TestWindow::WaitFor([&] { return isOver.load(); }));
    ide.join();
    return (report + error).toStdString();
}

inline QByteArray RecordOf(const QString &path)
{
    QString error;
    return BuildRecord(CommandRecord{path}, error).value();
}
