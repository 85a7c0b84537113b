#pragma once

#include <QImage>
#include <QObject>
#include <QPixmap>

#include <functional>
#include <memory>

/// A picture file, as far as it can be shown.
struct LoadedPicture
{
    QSize size;      ///< of the picture in the file, in pixels; empty when it can't be read
    QImage picture;  ///< no larger than was asked for; null when the picture can't be shown
    QString problem; ///< why it can't be shown, as half a sentence; empty when it can
};

/// Loads picture files in threads of its own, for thumbnails and for the preview. The main thread never waits for it.
///
/// What was asked for last is loaded first. A picture of more than 16 megapixels isn't decoded.
class PictureLoader : public QObject
{
public:
    explicit PictureLoader(QObject *parent = nullptr);
    ~PictureLoader() override;

    /// The thumbnail of a file in a square of `side` device pixels: null while it isn't loaded yet, which this asks
    /// for, and null with `isKnown` set when the file has none. `hostPath` is absolute, in bytes of the file system.
    [[nodiscard]] QPixmap Thumbnail(const QByteArray &hostPath, int side, bool *isKnown = nullptr);
    /// Told on the main thread when thumbnails have been loaded, once for many.
    std::function<void()> thumbnailsLoaded;

    /// Loads one picture, in at most `most` device pixels, and tells it on the main thread. What was asked for with
    /// this before is no longer told.
    void Load(const QByteArray &hostPath, QSize most, std::function<void(const LoadedPicture &)> then);

    /// Drops the thumbnails that are asked for and not loaded yet, such as when another folder is shown.
    void DropRequests();
    /// Forgets what is known of all files: they may have changed.
    void Forget();

private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};
