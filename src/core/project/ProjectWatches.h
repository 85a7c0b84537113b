// SPDX-License-Identifier: MIT
#pragma once

#include "FrameServices.h"

#include <optional>

/// The kinds of files of a project that are watched.
enum WatchClass
{
    WATCH_RESOURCES = 0,
    WATCH_STRINGS = 1,
    WATCH_LAYOUT = 2,
    WATCH_CONFIGURATION = 3,
};

/// The watches of one project's files: its configuration, its resource list, its string file and any number of layout
/// files. Does nothing if the frame doesn't watch files.
class ProjectWatches
{
public:
    /// `document` is notified of changes. Both must outlive this object.
    ProjectWatches(const CFrameServices &frameServices, CDocument &document) : services(frameServices), doc(document) {}

    /// Watches a file. The watch replaces that of the previous file of the class; for layout files, that of the same
    /// file.
    void Watch(const QString &path, WatchClass watchClass);
    void Unwatch(const QString &path, WatchClass watchClass);
    void UnwatchLayouts();

    struct Watched
    {
        WatchClass watchClass;
        QString layout; ///< the path of a layout file
    };
    /// Returns what a handle of the monitor watches; nullopt for other handles.
    [[nodiscard]] std::optional<Watched> Find(quint32 handle) const;

private:
    const CFrameServices &services;
    CDocument &doc;
    quint32 resources = 0;
    quint32 strings = 0;
    quint32 configuration = 0;
    std::map<QString, quint32> layouts;
};
