// SPDX-License-Identifier: MIT
#include "CFileChangeMonitor.h"

#include "FileMark.h"
#include "FolderWatch.h"

#include <algorithm>
#include <map>
#include <system_error>

struct CFileChangeMonitor::Parts
{
    struct Entry
    {
        FILEWATCHITEM item;
        QByteArray path;
        std::vector<QByteArray> folders; // the folders that have an event when the file changes
        qint64 mark = 0;                 // the time of a file, or a number that identifies a state of a whole folder

        [[nodiscard]] bool IsFolder() const { return path.endsWith('/'); }
        [[nodiscard]] bool IsIn(const std::set<QByteArray> &changed) const
        {
            return std::any_of(folders.begin(), folders.end(),
                               [&](const auto &folder) { return changed.contains(folder); });
        }
    };
    struct Look
    {
        quint32 handle;
        QByteArray path;
        std::vector<QByteArray> folders;
        bool isCertain; // changed, whatever its mark says
        std::optional<qint64> mark;
    };

    Parts(Notify changed, const WatchTimes &waits) : notify(std::move(changed)), times(waits) {}
    bool StartThread();
    void Compare(FolderWatch &watch, const FolderWatch::Changes &changes);
    std::vector<Look> LooksAt(const FolderWatch::Changes &changes);
    bool Take(FolderWatch &watch, Look &look);

    const Notify notify;
    const WatchTimes times;

    std::mutex lock; // protects the next two; taken before the lock of `watch`, never while that is held
    std::map<quint32, Entry> entries;
    quint32 nextHandle = 1;

    std::unique_ptr<FolderWatch> watch; // used by the main thread only
};

namespace
{

void WatchAll(FolderWatch &watch, const std::vector<QByteArray> &folders)
{
    for (const QByteArray &folder : folders)
        watch.Watch(folder);
}

void UnwatchAll(FolderWatch &watch, const std::vector<QByteArray> &folders)
{
    for (const QByteArray &folder : folders)
        watch.Unwatch(folder);
}

} // namespace

bool CFileChangeMonitor::Parts::StartThread()
{
    if (watch)
        return true;
    try {
        watch = std::make_unique<FolderWatch>(
            [this](FolderWatch &folders, const FolderWatch::Changes &changes) { Compare(folders, changes); }, times);
    } catch (const std::system_error &) { // no thread left: the file isn't watched
        return false;
    }
    return true;
}

/// Runs on the thread. Reads the files without the lock, since a disk may be slow and nothing should wait for it.
void CFileChangeMonitor::Parts::Compare(FolderWatch &folderWatch, const FolderWatch::Changes &changes)
{
    std::vector<Look> looks = LooksAt(changes);
    for (Look &look : looks) {
        std::vector<QByteArray> folders = FoldersOf(look.path);
        WatchAll(folderWatch, folders); // before the time is read, so that a later change causes another notice
        std::swap(look.folders, folders);
        look.mark = MarkOf(look.path);
    }
    const std::lock_guard held(lock);
    std::vector<quint32> changed;
    for (Look &look : looks) {
        if (Take(folderWatch, look))
            changed.push_back(look.handle);
    }
    if (!changed.empty())
        notify(changed);
}

std::vector<CFileChangeMonitor::Parts::Look> CFileChangeMonitor::Parts::LooksAt(const FolderWatch::Changes &changes)
{
    const std::lock_guard held(lock);
    std::vector<Look> looks;
    for (const auto &[handle, entry] : entries) {
        const bool isChanged = entry.IsIn(changes.changed);
        if (isChanged || entry.IsIn(changes.due))
            looks.push_back({handle, entry.path, {}, isChanged && entry.IsFolder(), {}});
    }
    return looks;
}

/// Stores the result before anything is reported. Returns true if the file has changed.
bool CFileChangeMonitor::Parts::Take(FolderWatch &folderWatch, Look &look)
{
    const auto known = entries.find(look.handle);
    if (known == entries.end()) {
        UnwatchAll(folderWatch, look.folders);
        return false;
    }
    Entry &entry = known->second;
    std::swap(entry.folders, look.folders);
    UnwatchAll(folderWatch, look.folders);
    if (!look.mark)
        return look.isCertain;
    const bool isOther = *look.mark != entry.mark;
    entry.mark = *look.mark;
    if (!entry.IsFolder())
        entry.item.lastWrite = entry.mark;
    return isOther || look.isCertain;
}

CFileChangeMonitor::CFileChangeMonitor(Notify changed) : CFileChangeMonitor(std::move(changed), WatchTimes()) {}

CFileChangeMonitor::CFileChangeMonitor(Notify changed, const WatchTimes &times)
    : parts(std::make_unique<Parts>(std::move(changed), times))
{
}

CFileChangeMonitor::~CFileChangeMonitor()
{
    Stop();
}

quint32 CFileChangeMonitor::AddFile(const QString &path, CDocument *doc)
{
    Parts::Entry entry;
    entry.path = path.toUtf8();
    const std::optional<qint64> mark = MarkOf(entry.path);
    if (!mark && !entry.IsFolder())
        return 0;
    if (!parts->StartThread())
        return 0;
    // The time is read once the folders are watched, so no later change is missed. The thread uses the entry once the
    // lock is free again.
    const std::lock_guard held(parts->lock);
    entry.folders = FoldersOf(entry.path);
    WatchAll(*parts->watch, entry.folders);
    entry.mark = MarkOf(entry.path).value_or(mark.value_or(0));
    entry.item.path = path;
    entry.item.lastWrite = entry.IsFolder() ? 0 : entry.mark;
    entry.item.doc = doc;
    const quint32 handle = parts->nextHandle++;
    parts->entries.emplace(handle, std::move(entry));
    return handle;
}

void CFileChangeMonitor::SetAutoReloadFlags(quint32 handle, qint32 *fileFlag, qint32 *typeFlag)
{
    const std::lock_guard held(parts->lock);
    const auto known = parts->entries.find(handle);
    if (known == parts->entries.end())
        return;
    known->second.item.autoReloadFile = fileFlag;
    known->second.item.autoReloadType = typeFlag;
}

void CFileChangeMonitor::RemoveFile(quint32 handle)
{
    bool isLast = false;
    {
        const std::lock_guard held(parts->lock);
        const auto known = parts->entries.find(handle);
        if (known != parts->entries.end()) {
            UnwatchAll(*parts->watch, known->second.folders);
            parts->entries.erase(known);
        }
        isLast = parts->entries.empty();
    }
    if (isLast)
        Stop();
}

void CFileChangeMonitor::Stop()
{
    {
        const std::lock_guard held(parts->lock);
        parts->entries.clear();
    }
    parts->watch.reset(); // without the lock, since the thread may be waiting for it
}

std::optional<FILEWATCHITEM> CFileChangeMonitor::ItemOf(quint32 handle) const
{
    const std::lock_guard held(parts->lock);
    const auto known = parts->entries.find(handle);
    if (known == parts->entries.end())
        return {};
    return known->second.item;
}
