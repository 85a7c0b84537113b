// SPDX-License-Identifier: MIT
#include "ProjectWatches.h"

#include "HostFiles.h"

#include <utility>

void ProjectWatches::Watch(const QString &path, WatchClass watchClass)
{
    Unwatch(path, watchClass);
    if (!services.watch)
        return;
    const quint32 handle = services.watch->AddFile(QString::fromUtf8(HostPath(path)), &doc);
    ReloadFlags *const flags = services.reloadFlags;
    qint32 *fileFlag = nullptr;
    switch (watchClass) {
    case WATCH_RESOURCES:
        resources = handle;
        fileFlag = flags ? &flags->resources : nullptr;
        break;
    case WATCH_STRINGS:
        strings = handle;
        fileFlag = flags ? &flags->strings : nullptr;
        break;
    case WATCH_CONFIGURATION:
        configuration = handle;
        fileFlag = flags ? &flags->configuration : nullptr;
        break;
    case WATCH_LAYOUT:
        layouts[path] = handle;
        fileFlag = flags ? &flags->layouts[path] : nullptr;
        break;
    }
    if (handle)
        services.watch->SetAutoReloadFlags(handle, fileFlag, nullptr);
}

void ProjectWatches::Unwatch(const QString &path, WatchClass watchClass)
{
    quint32 handle = 0;
    if (watchClass == WATCH_RESOURCES) {
        handle = std::exchange(resources, 0);
    } else if (watchClass == WATCH_STRINGS) {
        handle = std::exchange(strings, 0);
    } else if (watchClass == WATCH_CONFIGURATION) {
        handle = std::exchange(configuration, 0);
    } else if (const auto known = layouts.find(path); known != layouts.end()) {
        handle = known->second;
        layouts.erase(known);
    }
    if (handle && services.watch)
        services.watch->RemoveFile(handle);
}

void ProjectWatches::UnwatchLayouts()
{
    while (!layouts.empty())
        Unwatch(QString(layouts.begin()->first), WATCH_LAYOUT);
}

std::optional<ProjectWatches::Watched> ProjectWatches::Find(quint32 handle) const
{
    if (handle == 0)
        return {};
    if (handle == resources)
        return Watched{WATCH_RESOURCES, {}};
    if (handle == configuration)
        return Watched{WATCH_CONFIGURATION, {}};
    if (handle == strings)
        return Watched{WATCH_STRINGS, {}};
    for (const auto &[path, watch] : layouts) {
        if (watch == handle)
            return Watched{WATCH_LAYOUT, path};
    }
    return {};
}
