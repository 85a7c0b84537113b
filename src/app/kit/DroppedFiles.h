// SPDX-License-Identifier: MIT
#pragma once

#include <QMimeData>
#include <QUrl>

/// The paths of the local files and folders in dropped data.
[[nodiscard]] inline QStringList DroppedFiles(const QMimeData *data)
{
    QStringList files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}
