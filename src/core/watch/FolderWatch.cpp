// SPDX-License-Identifier: MIT
#include "FolderWatch.h"

#include "SignalCleanup.h"

#include <algorithm>
#include <array>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

using namespace std::chrono_literals;
using Source = FolderEvents::Source;

namespace
{

// In a burst, events are left to gather, since waking up for each of them would cost more than all other work.
constexpr auto GATHER_TIME = 30ms;
constexpr int LOWEST_PRIORITY = 19;

} // namespace

FolderWatch::FolderWatch(Notify notify, const WatchTimes &waits)
    : tell(std::move(notify)), times(waits), wake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    const SignalHold hold;
    thread = std::thread([this] { Run(); });
}

FolderWatch::~FolderWatch()
{
    {
        const std::lock_guard held(lock);
        isEnding = true;
    }
    Wake();
    thread.join();
}

void FolderWatch::Watch(const QByteArray &path)
{
    const std::lock_guard held(lock);
    Folder &folder = folders[path];
    if (folder.users++ > 0)
        return;
    Attach(path, folder, Clock::now());
    Wake();
}

void FolderWatch::Unwatch(const QByteArray &path)
{
    const std::lock_guard held(lock);
    const auto folder = folders.find(path);
    if (folder == folders.end() || --folder->second.users > 0)
        return;
    events.Detach(path);
    folders.erase(folder);
    changes.changed.erase(path);
    changes.due.erase(path);
}

void FolderWatch::Wake() const
{
    const quint64 one = 1;
    (void)wake.WriteAll(&one, sizeof one);
}

void FolderWatch::Run()
{
    setpriority(PRIO_PROCESS, id_t(gettid()), LOWEST_PRIORITY);
    std::unique_lock held(lock);
    while (!isEnding) {
        const int descriptor = IsSettling() ? -1 : events.Descriptor();
        std::array<pollfd, 2> sources{pollfd{wake.Get(), POLLIN, 0}, pollfd{descriptor, POLLIN, 0}};
        const int wait = MillisecondsToWait(Clock::now());
        held.unlock();
        poll(sources.data(), sources.size(), wait);
        held.lock();
        quint64 wakes = 0;
        (void)wake.Read(&wakes, sizeof wakes);
        if (isEnding)
            break;
        const Clock::time_point now = Clock::now();
        TakeEvents(now);
        LookAtDueFolders(now);
        if (!IsSettling() || now < TimeOfNotice())
            continue;
        const Changes told = std::exchange(changes, {});
        held.unlock();
        tell(*this, told);
        held.lock();
    }
}

void FolderWatch::Attach(const QByteArray &path, Folder &folder, Clock::time_point now)
{
    folder.source = events.Attach(path);
    folder.due = now + (folder.source == Source::Gone ? times.back : times.poll);
}

void FolderWatch::TakeEvents(Clock::time_point now)
{
    const FolderEvents::Batch batch = events.Read();
    for (auto &[path, folder] : folders) {
        const bool isMoved = batch.incomplete || batch.moved.contains(path);
        if (isMoved)
            Attach(path, folder, now);
        if (isMoved || batch.changed.contains(path))
            Mark(changes.changed, path, now);
    }
}

/// Checks folders that are gone, which may exist again, and folders without events, which are compared; both may have
/// events by now. During a burst, folders that are gone are checked at once, so that what is written to a new one
/// belongs to the burst.
void FolderWatch::LookAtDueFolders(Clock::time_point now)
{
    for (auto &[path, folder] : folders) {
        const bool wasGone = folder.source == Source::Gone;
        const bool isDue = now >= folder.due || (wasGone && IsSettling());
        if (folder.source == Source::Events || !isDue)
            continue;
        Attach(path, folder, now);
        if (folder.source != Source::Gone || !wasGone)
            Mark(wasGone ? changes.changed : changes.due, path, now);
    }
}

void FolderWatch::Mark(std::set<QByteArray> &set, const QByteArray &folder, Clock::time_point now)
{
    if (!IsSettling())
        firstEvent = now;
    lastEvent = now;
    set.insert(folder);
}

FolderWatch::Clock::time_point FolderWatch::TimeOfNotice() const
{
    return std::min(lastEvent + times.quiet, firstEvent + times.longest);
}

/// -1 means to wait until something happens.
int FolderWatch::MillisecondsToWait(Clock::time_point now) const
{
    auto next = Clock::time_point::max();
    if (IsSettling())
        next = std::min(TimeOfNotice(), now + GATHER_TIME);
    for (const auto &[path, folder] : folders) {
        if (folder.source != Source::Events)
            next = std::min(next, folder.due);
    }
    if (!wake.IsOpen()) // no descriptor was available, so nothing wakes the thread
        next = std::min(next, now + GATHER_TIME);
    if (next == Clock::time_point::max())
        return -1;
    return int(std::max(std::chrono::ceil<std::chrono::milliseconds>(next - now), 0ms).count());
}
