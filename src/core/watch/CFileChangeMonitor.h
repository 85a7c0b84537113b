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
    QString path;         ///< of the host, absolute; one that ends in "/" is a whole folder
    qint64 lastWrite = 0; ///< the time of the last change as it was last seen, in nanoseconds; 0 for a folder
    CDocument *doc = nullptr;
    qint32 *autoReloadFile = nullptr; ///< not 0: reload without a question; null where there is no such flag
    qint32 *autoReloadType = nullptr; ///< the same
};

/// Watches the files of all open documents. One thread, which lives while there are files, compares the times of the
/// files of a folder in which something has happened. It touches no document.
///
/// All operations are for the main thread.
class CFileChangeMonitor final : public IFileChangeMonitor
{
public:
    /// Called by the thread, with the lock held, for the files that have changed together, handles ascending: it must
    /// pass them on to the main thread and return at once.
    using Notify = std::function<void(const std::vector<quint32> &handles)>;
    explicit CFileChangeMonitor(Notify changed);
    CFileChangeMonitor(Notify changed, const WatchTimes &times);
    ~CFileChangeMonitor();

    /// Each change from now on is told: also that of a file that has been deleted, once it can be read again with
    /// another time. A symbolic link is watched with what it leads to.
    quint32 AddFile(const QString &path, CDocument *doc) override;
    void SetAutoReloadFlags(quint32 handle, qint32 *fileFlag, qint32 *typeFlag) override;
    /// Ends the thread with the last file.
    void RemoveFile(quint32 handle) override;
    /// Waits for the thread to end. The next AddFile starts another; handles are never used twice.
    void Stop() override;

    /// A copy of what is watched with a handle; nothing for a handle that isn't known any more.
    [[nodiscard]] std::optional<FILEWATCHITEM> ItemOf(quint32 handle) const;

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};
