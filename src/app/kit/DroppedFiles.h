#pragma once

#include <QMimeData>
#include <QUrl>

/// The local files and folders among what is dropped.
[[nodiscard]] inline QStringList DroppedFiles(const QMimeData *data)
{
    QStringList files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}
