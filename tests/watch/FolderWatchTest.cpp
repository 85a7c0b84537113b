#include "FolderWatch.h"
#include "TempFolder.h"
#include "WatchedNotices.h"

#include <atomic>
#include <sys/stat.h>

using namespace std::chrono_literals;
using Folders = std::set<QByteArray>;

TEST(FolderWatch, TellsAllFoldersWhenTheSystemHasDroppedEvents)
{
    const TempFolder disk;
    disk.Put("a/1", "");
    disk.Put("a/2", "");
    disk.Put("b/1", "");
    const QByteArray a = disk.Path("a/").toUtf8();
    const QByteArray b = disk.Path("b/").toUtf8();
    WatchedNotices<Folders> notices;
    std::atomic<bool> isHeld = true;
    FolderWatch watch([&](FolderWatch &, const FolderWatch::Changes &changes) {
        notices.Add(changes.changed);
        isHeld.wait(true);
    });
    watch.Watch(a);
    watch.Watch(b);
    disk.Put("a/1", "x");
    EXPECT_EQ(notices.Next(), Folders{a});
    QFile limit(QStringLiteral("/proc/sys/fs/inotify/max_queued_events"));
    ASSERT_TRUE(limit.open(QIODevice::ReadOnly));
    for (int n = limit.readAll().trimmed().toInt(); n >= 0; n -= 2) { // equal events in a row would be one
        chmod((a + '1').constData(), 0600);
        chmod((a + '2').constData(), 0600);
    }
    disk.Put("b/1", "x");
    isHeld = false;
    isHeld.notify_all();
    EXPECT_EQ(notices.Next(), (Folders{a, b}));
    EXPECT_EQ(notices.Next(300ms), Folders());
    disk.Put("b/1", "y");
    EXPECT_EQ(notices.Next(), Folders{b});
}

TEST(FolderWatch, TellsAtTheLatestTimeWhileEventsGoOn)
{
    const TempFolder disk;
    const QByteArray path = disk.Path("").toUtf8() + '/';
    WatchedNotices<Folders> notices;
    FolderWatch watch([&](FolderWatch &, const FolderWatch::Changes &changes) { notices.Add(changes.changed); },
                      {200ms, 500ms, 1s, 1s});
    watch.Watch(path);
    const auto start = std::chrono::steady_clock::now();
    Folders told;
    while (told.empty() && std::chrono::steady_clock::now() - start < 5s) {
        disk.Put("f", "x");
        told = notices.Next(20ms);
    }
    EXPECT_EQ(told, Folders{path});
    EXPECT_GE(std::chrono::steady_clock::now() - start, 490ms);
}
