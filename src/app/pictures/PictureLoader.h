#pragma once

#include "LoadedPicture.h"

#include <QObject>
#include <QPixmap>

#include <functional>
#include <memory>

/// Loads picture files in threads of its own, for thumbnails and for the preview. The main thread never waits for it.
///
/// What was asked for last is loaded first. A picture of more than 16 megapixels isn't decoded. Thumbnails of 16 MiB
/// are kept; one that is asked for seconds after its file was looked at has its file looked at again, and the old
/// picture is shown until then.
class PictureLoader : public QObject
{
public:
    explicit PictureLoader(QObject *parent = nullptr);
    ~PictureLoader() override;

    /// The thumbnail of a file in a square of `side` device pixels: null while it isn't loaded yet, which this asks
    /// for, and null with `isKnown` set when the file has none. `hostPath` is absolute, in bytes of the file system.
    /// `side` is at most 512.
    [[nodiscard]] QPixmap Thumbnail(const QByteArray &hostPath, int side, bool *isKnown = nullptr);
    /// Told on the main thread when thumbnails have been loaded, once for many. What isn't known then and is in sight
    /// has to be asked for again, as painting does: of many that wait the oldest are dropped.
    std::function<void()> thumbnailsLoaded;

    /// Loads one picture, in at most `most` device pixels, and tells it on the main thread. What was asked for with
    /// this before is no longer told. With an empty `most` nothing is decoded: for the size of the file.
    void Load(const QByteArray &hostPath, QSize most, std::function<void(const LoadedPicture &)> then);

    /// Drops the thumbnails that are asked for and not loaded yet, such as when another folder is shown.
    void DropRequests();
    /// The files may have changed: each is looked at again when its thumbnail is asked for the next time. The old
    /// thumbnail is shown until then.
    void Forget();

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};
