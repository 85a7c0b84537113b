// SPDX-License-Identifier: MIT
#include "PictureLoader.h"

#include "PictureWorkers.h"

#include <QCache>
#include <QImageReader>
#include <QSet>

namespace
{

constexpr int MOST_SIDE = 512;
constexpr qsizetype CACHE_BYTES = qsizetype(16) << 20;
constexpr qsizetype ENTRY_BYTES = 256;  // about, in addition to its pixels
constexpr qint64 LOOK_AGAIN_MS = 2000;  // after a file was checked
constexpr int MOST_MEGABYTES = 128 + 1; // for one picture in memory: 16 megapixels of 8 bytes

struct ThumbnailKey
{
    QByteArray hostPath;
    int side;

    bool operator==(const ThumbnailKey &) const = default;
    friend size_t qHash(const ThumbnailKey &key, size_t seed = 0) { return qHashMulti(seed, key.hostPath, key.side); }
};

struct Thumbnail
{
    QPixmap pixmap; // null if the file has none
    FileStamp stamp;
    qint64 lookedAt;    // the time on the loader's clock
    quint64 generation; // the loader's generation at that time
};

} // namespace

struct PictureLoader::Parts
{
    explicit Parts(PictureLoader &pictureLoader)
        : owner(pictureLoader), workers([this](std::vector<PictureResult> results) { Take(std::move(results)); })
    {
        clock.start();
    }

    void Ask(const ThumbnailKey &key, const ::Thumbnail *known);
    void Take(std::vector<PictureResult> results);
    /// Stores a result. Returns false if it has no new information.
    bool TakeThumbnail(PictureResult &result);
    [[nodiscard]] bool IsFresh(const ::Thumbnail &known) const;

    PictureLoader &owner;
    QElapsedTimer clock;
    QCache<ThumbnailKey, ::Thumbnail> cache{CACHE_BYTES};
    QSet<ThumbnailKey> asked;
    quint64 generation = 0; // counts up when the files may have changed
    quint64 load = 0;       // number of the latest load
    std::function<void(const LoadedPicture &)> then;
    PictureWorkers workers; // the last member, so that it is destroyed first
};

void PictureLoader::Parts::Ask(const ThumbnailKey &key, const ::Thumbnail *known)
{
    if (asked.contains(key))
        return;
    asked.insert(key);
    PictureRequest request{key.hostPath, QSize(key.side, key.side), true, std::nullopt, generation};
    if (known)
        request.known = known->stamp;
    if (const auto dropped = workers.AddThumbnail(std::move(request)))
        asked.remove({dropped->hostPath, dropped->most.width()});
}

bool PictureLoader::Parts::TakeThumbnail(PictureResult &result)
{
    if (result.request.number != generation)
        return false;
    const ThumbnailKey key{result.request.hostPath, result.request.most.width()};
    asked.remove(key);
    if (result.isUnchanged) {
        ::Thumbnail *const known = cache.object(key);
        if (!known)
            return true; // it has left the cache meanwhile and must be requested again
        known->lookedAt = clock.elapsed();
        known->generation = generation;
        return false;
    }
    const qsizetype bytes = ENTRY_BYTES + key.hostPath.size() + result.picture.picture.sizeInBytes();
    cache.insert(key,
                 new ::Thumbnail{QPixmap::fromImage(std::move(result.picture.picture)), result.stamp, clock.elapsed(),
                                 generation},
                 bytes);
    return true;
}

bool PictureLoader::Parts::IsFresh(const ::Thumbnail &known) const
{
    return known.generation == generation && clock.elapsed() - known.lookedAt <= LOOK_AGAIN_MS;
}

void PictureLoader::Parts::Take(std::vector<PictureResult> results)
{
    bool hasThumbnails = false;
    for (PictureResult &result : results) {
        if (result.request.isThumbnail)
            hasThumbnails = TakeThumbnail(result) || hasThumbnails;
        else if (result.request.number == load && then)
            std::exchange(then, nullptr)(result.picture);
    }
    if (hasThumbnails && owner.thumbnailsLoaded)
        owner.thumbnailsLoaded();
}

PictureLoader::PictureLoader(QObject *parent) : QObject(parent), parts(std::make_unique<Parts>(*this))
{
    QImageReader::setAllocationLimit(MOST_MEGABYTES);
}

PictureLoader::~PictureLoader() = default;

QPixmap PictureLoader::Thumbnail(const QByteArray &hostPath, int side, bool *isKnown)
{
    const ThumbnailKey key{hostPath, qBound(1, side, MOST_SIDE)};
    const ::Thumbnail *const known = parts->cache.object(key);
    if (!known || !parts->IsFresh(*known))
        parts->Ask(key, known);
    if (isKnown)
        *isKnown = known;
    return known ? known->pixmap : QPixmap();
}

void PictureLoader::Load(const QByteArray &hostPath, QSize most, std::function<void(const LoadedPicture &)> then)
{
    parts->then = std::move(then);
    parts->workers.AddFirst({hostPath, most, false, std::nullopt, ++parts->load});
}

void PictureLoader::DropRequests()
{
    parts->workers.DropThumbnails();
    parts->asked.clear();
}

void PictureLoader::Forget()
{
    ++parts->generation;
    DropRequests();
}
