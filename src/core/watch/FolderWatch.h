// SPDX-License-Identifier: MIT
#pragma once

#include "FolderEvents.h"
#include "WatchTimes.h"

#include <functional>
#include <mutex>
#include <thread>

/// Reports changes in folders once the events of all of them have settled, so that everything another program does in
/// one go is reported together. Knows nothing of files and their times.
///
/// Has a thread of its own, with the lowest priority, from construction to destruction. All operations can be called
/// from any thread. A folder's path is an absolute host path that ends in "/".
class FolderWatch
{
public:
    struct Changes
    {
        std::set<QByteArray> changed;
        std::set<QByteArray> due; ///< folders without events, whose files must be compared
    };
    /// Called by the thread, which then holds no lock of this class.
    using Notify = std::function<void(FolderWatch &watch, const Changes &changes)>;

    /// Throws std::system_error if the system can't start a thread.
    explicit FolderWatch(Notify notify, const WatchTimes &times = {});
    /// Waits for the thread, including a `Notify` call that is running. Must not be called by the thread.
    ~FolderWatch();

    /// Watches a folder, which need not exist. Every change from now on is reported. A folder that was watched twice
    /// must be unwatched twice.
    void Watch(const QByteArray &folder);
    void Unwatch(const QByteArray &folder);

private:
    using Clock = std::chrono::steady_clock;
    struct Folder
    {
        int users = 0;
        FolderEvents::Source source = FolderEvents::Source::Gone;
        Clock::time_point due; ///< the next check, if there are no events
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

    std::mutex lock; // protects everything below
    bool isEnding = false;
    FolderEvents events;
    std::map<QByteArray, Folder> folders;
    Changes changes; // not reported yet
    Clock::time_point firstEvent;
    Clock::time_point lastEvent;

    std::thread thread;
};
