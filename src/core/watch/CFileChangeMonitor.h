// SPDX-License-Identifier: MIT
#pragma once

#include "FileWatch.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct WatchTimes;

/// A file that is watched.
struct FILEWATCHITEM
{
    QString path;         ///< absolute host path; one that ends in "/" is a whole folder
    qint64 lastWrite = 0; ///< the last known time of its last change, in nanoseconds; 0 for a folder
    CDocument *doc = nullptr;
    qint32 *autoReloadFile = nullptr; ///< not 0: reload without asking; null if there is no such flag
    qint32 *autoReloadType = nullptr; ///< the same
};

/// Watches the files of all open documents. One thread, which runs while there are files, compares the times of the
/// files of a folder when the folder has an event. It uses no document.
///
/// All operations are for the main thread.
class CFileChangeMonitor final : public IFileChangeMonitor
{
public:
    /// Called by the thread, with the lock held, for the files that have changed together, in ascending order of their
    /// handles. It must pass them to the main thread and return at once.
    using Notify = std::function<void(const std::vector<quint32> &handles)>;
    explicit CFileChangeMonitor(Notify changed);
    CFileChangeMonitor(Notify changed, const WatchTimes &times);
    ~CFileChangeMonitor();

    /// Every change from now on is reported, including that of a deleted file once it can be read again with another
    /// time. A symbolic link is watched together with its target.
    quint32 AddFile(const QString &path, CDocument *doc) override;
    void SetAutoReloadFlags(quint32 handle, qint32 *fileFlag, qint32 *typeFlag) override;
    /// Removing the last file ends the thread.
    void RemoveFile(quint32 handle) override;
    /// Ends the thread and waits for it. The next AddFile starts another; handles are never reused.
    void Stop() override;

    /// A copy of the item with that handle; nothing for a handle that is no longer known.
    [[nodiscard]] std::optional<FILEWATCHITEM> ItemOf(quint32 handle) const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};
