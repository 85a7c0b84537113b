#pragma once

#include "FolderEvents.h"
#include "WatchTimes.h"

#include <functional>
#include <mutex>
#include <thread>

/// Tells of changes in folders, after the events of all of them have settled: what another program does in one go is
/// told at once. Knows no files and no times.
///
/// Has a thread of its own, at the lowest priority, from its construction to its destruction. All operations can be
/// called from any thread. A folder's path is the host's, absolute, and ends in "/".
class FolderWatch
{
public:
    struct Changes
    {
        std::set<QByteArray> changed;
        std::set<QByteArray> due; ///< folders without events: their files have to be compared
    };
    /// Called by the thread, which holds no lock of this class meanwhile.
    using Notify = std::function<void(FolderWatch &watch, const Changes &changes)>;

    /// Throws std::system_error when the system has no thread left.
    explicit FolderWatch(Notify notify, const WatchTimes &times = {});
    /// Waits for the thread, and so for a notice that it is giving. Not to be called by the thread.
    ~FolderWatch();

    /// Watches a folder, which need not be there. Each change from now on is told. A folder that was watched twice has
    /// to be unwatched twice.
    void Watch(const QByteArray &folder);
    void Unwatch(const QByteArray &folder);

private:
    using Clock = std::chrono::steady_clock;
    struct Folder
    {
        int users = 0;
        FolderEvents::Source source = FolderEvents::Source::Gone;
        Clock::time_point due; ///< the next look, where there are no events
    };
    void Run();
    void Wake() const;
    void Attach(const QByteArray &path, Folder &folder, Clock::time_point now);
    void TakeEvents(Clock::time_point now);
    void LookAtDueFolders(Clock::time_point now);
    void Mark(std::set<QByteArray> &set, const QByteArray &folder, Clock::time_point now);
    [[nodiscard]] bool IsSettling() const { return !changes.changed.empty() || !changes.due.empty(); }
    [[nodiscard]] Clock::time_point TimeOfNotice() const;
    [[nodiscard]] int MillisecondsToWait(Clock::time_point now) const;

    const Notify tell;
    const WatchTimes times;
    const FileHandle wake; // an eventfd

    std::mutex lock; // of all that follows
    bool isEnding = false;
    FolderEvents events;
    std::map<QByteArray, Folder> folders;
    Changes changes; // not told yet
    Clock::time_point firstEvent;
    Clock::time_point lastEvent;

    std::thread thread;
};
