// SPDX-License-Identifier: MIT
#pragma once

#include "PictureWorkers.h"

#include <QHash>

/// The images of a layout's components, each decoded once, in threads of their own. They are kept up to 64 MiB in all;
/// what is above that isn't loaded.
class PreviewImages
{
public:
    /// `loaded` is told on the main thread after images have been loaded, once for many.
    explicit PreviewImages(std::function<void()> loaded);

    struct Image
    {
        QImage picture; ///< at most 1024 pixels wide and high; null when there is none, or not yet
        QSize size;     ///< of the picture in the file
    };
    /// The image in a file, which this asks for when it isn't known yet. `hostPath` is absolute, in bytes of the file
    /// system.
    [[nodiscard]] const Image &Of(const QByteArray &hostPath);

    /// The files may have changed: looks at each again. The old images are shown until then.
    void Refresh();

private:
    struct Known : Image
    {
        std::optional<FileStamp> stamp; // nothing while it has never been read
        bool isAsked = false;
    };
    void Ask(const QByteArray &hostPath, Known &known);
    void Take(std::vector<PictureResult> results);

    std::function<void()> told;
    QHash<QByteArray, Known> images;
    qsizetype bytes = 0;    // of all of them
    PictureWorkers workers; // last: it goes first
};
