// SPDX-License-Identifier: MIT
#include "ReloadQueue.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace
{

/// Returns whether reloading such a file reads the whole project.
bool IsWhole(WatchClass watchClass)
{
    return watchClass == WATCH_RESOURCES || watchClass == WATCH_CONFIGURATION;
}

int RankOf(WatchClass watchClass)
{
    switch (watchClass) {
    case WATCH_RESOURCES:
        return 0;
    case WATCH_CONFIGURATION:
        return 1;
    case WATCH_STRINGS:
        return 2;
    case WATCH_LAYOUT:
        break;
    }
    return 3;
}

bool ReloadsUnasked(const FILEWATCHITEM &item)
{
    return (item.autoReloadFile && *item.autoReloadFile != 0) || (item.autoReloadType && *item.autoReloadType != 0);
}

} // namespace

void ReloadQueue::Add(const std::vector<quint32> &handles)
{
    for (const quint32 handle : handles) {
        if (std::find(waiting.begin(), waiting.end(), handle) == waiting.end())
            waiting.push_back(handle);
    }
}

std::optional<ReloadQueue::Notice> ReloadQueue::Next()
{
    std::optional<Notice> next;
    std::erase_if(waiting, [&](quint32 handle) {
        const std::optional<FILEWATCHITEM> item = host.ItemOf(handle);
        const std::optional<WatchClass> watchClass =
            item && item->doc ? host.ClassOf(*item->doc, handle) : std::optional<WatchClass>();
        if (watchClass && (!next || RankOf(*watchClass) < RankOf(next->watchClass)))
            next = Notice{handle, *item, *watchClass};
        return !watchClass;
    });
    return next;
}

bool ReloadQueue::IsEmpty()
{
    return !Next();
}

void ReloadQueue::Run()
{
    if (isRunning)
        return;
    const QScopedValueRollback running(isRunning, true);
    while (Next() && host.MayAsk()) {
        if (const std::optional<Notice> next = Next()) // again, because MayAsk can commit an edit
            Answer(*next);
    }
}

void ReloadQueue::Forget(const Notice &notice)
{
    std::erase_if(waiting, [&](quint32 handle) {
        const std::optional<FILEWATCHITEM> item = host.ItemOf(handle);
        return handle == notice.handle || !item || (IsWhole(notice.watchClass) && item->doc == notice.item.doc);
    });
}

void ReloadQueue::Answer(const Notice &notice)
{
    Forget(notice); // the answer is about all changes up to now
    if (!ReloadsUnasked(notice.item) && !host.Ask(notice.item))
        return;
    Forget(notice);                 // the reload also reads changes made during the question
    if (host.ItemOf(notice.handle)) // its document is still open
        host.Reload(*notice.item.doc, notice.handle);
}
