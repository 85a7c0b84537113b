#include "PictureLoader.h"

#include "PictureWorkers.h"

#include <QCache>
#include <QImageReader>
#include <QSet>

namespace
{

constexpr int MOST_SIDE = 512;
constexpr qsizetype CACHE_BYTES = qsizetype(16) << 20;
constexpr qsizetype ENTRY_BYTES = 256;  // besides its pixels, about
constexpr qint64 LOOK_AGAIN_MS = 2000;  // after a file was looked at
constexpr int MOST_MEGABYTES = 128 + 1; // of one picture in memory: 16 megapixels of 8 bytes

struct ThumbnailKey
{
    QByteArray hostPath;
    int side;

    bool operator==(const ThumbnailKey &) const = default;
    friend size_t qHash(const ThumbnailKey &key, size_t seed = 0) { return qHashMulti(seed, key.hostPath, key.side); }
};

struct Thumbnail
{
    QPixmap pixmap; // null: there is none
    FileStamp stamp;
    qint64 lookedAt;    // by the loader's clock
    quint64 generation; // the loader's of then
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
    /// False when nothing new is known by it.
    bool TakeThumbnail(PictureResult &result);
    [[nodiscard]] bool IsFresh(const ::Thumbnail &known) const;

    PictureLoader &owner;
    QElapsedTimer clock;
    QCache<ThumbnailKey, ::Thumbnail> cache{CACHE_BYTES};
    QSet<ThumbnailKey> asked;
    quint64 generation = 0; // of what is known of the files
    quint64 load = 0;       // number of the latest one
    std::function<void(const LoadedPicture &)> then;
    PictureWorkers workers; // last: it goes first
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
            return true; // others have taken its room meanwhile: it has to be asked for again
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
