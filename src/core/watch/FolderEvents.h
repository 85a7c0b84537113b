#pragma once

#include "HostFiles.h"

#include <map>
#include <set>

/// Events of the system about folders (inotify): a file in one has changed, or its path leads elsewhere by now. An
/// event in a subfolder isn't an event of the folder.
///
/// Paths are the host's, absolute, and end in "/". Not for several threads at once.
class FolderEvents
{
public:
    enum class Source
    {
        Events, ///< the folder's events are read
        None,   ///< the system has no events of this folder: it is on a network, or a limit is used up
        Gone,   ///< there is no such folder
    };
    /// Reads the events of what the path names now; those of what it named before no longer.
    Source Attach(const QByteArray &folder);
    void Detach(const QByteArray &folder);

    struct Batch
    {
        std::set<QByteArray> changed;
        std::set<QByteArray> moved; ///< to be attached again: the path may lead elsewhere, or nowhere
        bool incomplete = false;    ///< events were dropped: any folder may have changed or moved
    };
    /// Reads what has happened since the last call. Doesn't wait.
    [[nodiscard]] Batch Read();

    /// Readable when there are events. -1 as long as no folder has any.
    [[nodiscard]] int Descriptor() const { return inotify.Get(); }

private:
    void AttachPath(QByteArray path, const QByteArray &folder);
    bool Add(const QByteArray &path, quint32 mask, const QByteArray &folder);
    void Sort(int watch, quint32 mask, Batch &batch) const;

    FileHandle inotify;
    /// By the system's number of the watch: which events of it each folder wants.
    std::map<int, std::map<QByteArray, quint32>> uses;
};
