#pragma once

#include "FrameServices.h"

#include <optional>

/// The kinds of a project's files that are watched.
enum WatchClass
{
    WATCH_RESOURCES = 0,
    WATCH_STRINGS = 1,
    WATCH_LAYOUT = 2,
    WATCH_CONFIGURATION = 3,
};

/// The watches of one project's files: its configuration, its resource list, its string file and any number of layout
/// files. Does nothing where nobody watches files.
class ProjectWatches
{
public:
    /// `document` is told of changes. Both must live longer.
    ProjectWatches(const CFrameServices &frameServices, CDocument &document) : services(frameServices), doc(document) {}

    /// Watches a file in the place of the one of its class; of layout files in the place of the same one.
    void Watch(const QString &path, WatchClass watchClass);
    void Unwatch(const QString &path, WatchClass watchClass);
    void UnwatchLayouts();

    struct Watched
    {
        WatchClass watchClass;
        QString layout; ///< the path of a layout file
    };
    /// What a handle of the monitor watches.
    [[nodiscard]] std::optional<Watched> Find(quint32 handle) const;

private:
    const CFrameServices &services;
    CDocument &doc;
    quint32 resources = 0;
    quint32 strings = 0;
    quint32 configuration = 0;
    std::map<QString, quint32> layouts;
};
