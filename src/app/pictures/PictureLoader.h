// SPDX-License-Identifier: MIT
#pragma once

#include "LoadedPicture.h"

#include <QObject>
#include <QPixmap>

#include <functional>
#include <memory>

/// Loads picture files in its own threads, for thumbnails and for the preview. The main thread never waits for it.
///
/// The newest request is served first. Pictures of more than 16 megapixels are not decoded. Up to 16 MiB of thumbnails
/// are cached. If a thumbnail is requested some seconds after its file was last checked, the file is checked again, and
/// the old thumbnail is shown until then.
class PictureLoader : public QObject
{
public:
    explicit PictureLoader(QObject *parent = nullptr);
    ~PictureLoader() override;

    /// The thumbnail of a file in a square of `side` device pixels: null if it isn't loaded yet, in which case this
    /// requests it, and null with `isKnown` set if the file has none. `hostPath` is absolute, in bytes of the file
    /// system. `side` is at most 512.
    [[nodiscard]] QPixmap Thumbnail(const QByteArray &hostPath, int side, bool *isKnown = nullptr);
    /// Called in the main thread when thumbnails have been loaded, once for many. Visible thumbnails that are still
    /// unknown must be requested again, as painting does, because the oldest of many waiting requests are dropped.
    std::function<void()> thumbnailsLoaded;

    /// Loads one picture, at a size of at most `most` device pixels, and calls `then` in the main thread. The results
    /// of earlier calls of this function are no longer reported. With an empty `most` nothing is decoded; this is for
    /// the sizes of the picture and the file.
    void Load(const QByteArray &hostPath, QSize most, std::function<void(const LoadedPicture &)> then);

    /// Drops requests for thumbnails that are not loaded yet, for example because another folder is shown.
    void DropRequests();
    /// Must be called if the files may have changed. Each file is checked again when its thumbnail is requested the
    /// next time. The old thumbnail is shown until then.
    void Forget();

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};
