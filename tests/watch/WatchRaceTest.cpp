// SPDX-License-Identifier: MIT
#include "CFileChangeMonitor.h"
#include "HostFiles.h"
#include "TempFolder.h"
#include "WatchTimes.h"

#include <atomic>
#include <fcntl.h>
#include <thread>

using namespace std::chrono_literals;

// ThreadSanitizer finds accesses without a lock in this test; see .ci/run.
#ifdef __SANITIZE_THREAD__
constexpr int ROUNDS = 10'000;
#else
constexpr int ROUNDS = 1000;
#endif

TEST(WatchRace, AddsRemovesAndStopsWhileFilesAreWritten)
{
    const TempFolder folder;
    folder.Put("f", "");
    folder.Put("g/g", "");
    std::atomic<int> notices = 0;
    std::atomic<bool> isOver = false;
    const QByteArray written = folder.Path("f").toUtf8();
    const QByteArray renamed = folder.Path("g/g").toUtf8();
    std::thread writer([&] {
        for (int n = 0; !isOver; ++n) {
            const QByteArray path = n % 2 ? written : written + '~';
            (void)FileHandle(open(path.constData(), O_CREAT | O_WRONLY | O_TRUNC, 0600)).WriteAll("x", 1);
            rename((written + '~').constData(), renamed.constData());
        }
    });
    qint32 flag = 0;
    quint32 last = 0;
    {
        CFileChangeMonitor monitor([&](const std::vector<quint32> &handles) { notices += int(handles.size()); },
                                   {0ms, 1ms, 1ms, 1ms});
        for (int round = 0; round < ROUNDS; ++round) {
            for (const char *file : {"f", "g/g"}) {
                const quint32 handle = monitor.AddFile(folder.Path(file), nullptr);
                EXPECT_GT(handle, last);
                last = handle;
                monitor.SetAutoReloadFlags(handle, &flag, nullptr);
            }
            if (round % 3 == 0)
                std::this_thread::sleep_for(100us);
            (void)monitor.ItemOf(last);
            monitor.RemoveFile(last - 1);
            if (round % 10 == 0)
                monitor.Stop();
            else if (round % 10 == 9)
                monitor.RemoveFile(last);
        }
    }
    isOver = true;
    writer.join();
    EXPECT_GT(notices, 0);
}
