// SPDX-License-Identifier: MIT
#pragma once

#include "PictureWorkers.h"

#include <QHash>

/// The images of a layout's components. Each is decoded once, in a separate thread. Once the images take 64 MiB in
/// total, no other images are loaded.
class PreviewImages
{
public:
    /// `loaded` is called on the main thread after images have been loaded, once for several images.
    explicit PreviewImages(std::function<void()> loaded);

    struct Image
    {
        QImage picture; ///< at most 1024 pixels wide and high; null if there is none or it isn't loaded yet
        QSize size;     ///< of the picture in the file
    };
    /// The image in a file. Requests the image if it isn't known yet. `hostPath` is absolute, in bytes of the file
    /// system.
    [[nodiscard]] const Image &Of(const QByteArray &hostPath);

    /// Checks whether each file has changed and loads it again if so. The old images are shown until then.
    void Refresh();

private:
    struct Known : Image
    {
        std::optional<FileStamp> stamp; // nothing if the file has never been read
        bool isAsked = false;
    };
    void Ask(const QByteArray &hostPath, Known &known);
    void Take(std::vector<PictureResult> results);

    std::function<void()> told;
    QHash<QByteArray, Known> images;
    qsizetype bytes = 0;    // of all images
    PictureWorkers workers; // last, so that it is destroyed first
};
