// SPDX-License-Identifier: MIT
#pragma once

#include "HostFiles.h"

#include <map>
#include <set>

/// Events of the system about folders (inotify): a file in a folder has changed, or the folder's path now leads
/// elsewhere. An event in a subfolder isn't an event of the folder.
///
/// Paths are absolute host paths that end in "/". Not thread-safe.
class FolderEvents
{
public:
    enum class Source
    {
        Events, ///< the folder's events are read
        None,   ///< the system has no events for this folder: it is on a network, or a limit is reached
        Gone,   ///< there is no such folder
    };
    /// Reads the events of the folder that the path names now, and no longer those of the folder that it named before.
    Source Attach(const QByteArray &folder);
    void Detach(const QByteArray &folder);

    struct Batch
    {
        std::set<QByteArray> changed;
        std::set<QByteArray> moved; ///< must be attached again: the path may lead elsewhere, or nowhere
        bool incomplete = false;    ///< events were dropped: any folder may have changed or moved
    };
    /// Reads the events since the last call. Doesn't wait.
    [[nodiscard]] Batch Read();

    /// The descriptor that is readable when there are events; -1 while no folder has events.
    [[nodiscard]] int Descriptor() const { return inotify.Get(); }

private:
    void AttachPath(QByteArray path, const QByteArray &folder);
    bool Add(const QByteArray &path, quint32 mask, const QByteArray &folder);
    void Sort(int watch, quint32 mask, Batch &batch) const;

    FileHandle inotify;
    /// For each watch, by the system's number: the events that each folder needs.
    std::map<int, std::map<QByteArray, quint32>> uses;
};
