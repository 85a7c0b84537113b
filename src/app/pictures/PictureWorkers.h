#pragma once

#include "FileStamps.h"
#include "LoadedPicture.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

/// A picture file that is to be read.
struct PictureRequest
{
    QByteArray hostPath;
    QSize most;                     ///< in device pixels; empty: the picture's size alone
    bool isThumbnail = false;       ///< in a square of `most`
    std::optional<FileStamp> known; ///< what is known already: a file that still has this stamp isn't read
    quint64 number = 0;             ///< for who asks
    bool isWhole = false;           ///< of a thumbnail: not in a square, but as the picture is
};

struct PictureResult
{
    PictureRequest request;
    LoadedPicture picture;
    FileStamp stamp;
    bool isUnchanged = false; ///< the file has the stamp that is known, and there is no picture
};

/// Threads that read picture files, as many as there are cores, at a lower priority than the rest of the
/// program. They read the newest request first. The main thread owns this object and gets the results in bursts.
class PictureWorkers : public QObject
{
public:
    explicit PictureWorkers(std::function<void(std::vector<PictureResult>)> tellResults);
    /// Waits for the files that are being read, whose results are dropped; reading them ends early.
    ~PictureWorkers() override;

    /// Asks for a thumbnail. Of more than 512 that wait the oldest is dropped, and is the result.
    [[nodiscard]] std::optional<PictureRequest> AddThumbnail(PictureRequest request);
    /// Asks for a picture that goes before all thumbnails. One that waits is replaced.
    void AddFirst(PictureRequest request);
    /// Drops the thumbnails that wait.
    void DropThumbnails();

private:
    void StartWorker(const std::unique_lock<std::mutex> &locked);
    void Work();
    [[nodiscard]] std::optional<PictureRequest> NextRequest();
    void Add(PictureResult result);
    void TellSoon();
    void Tell();

    std::function<void(std::vector<PictureResult>)> tell;
    QElapsedTimer sinceTold;
    std::atomic<bool> isStopped = false;

    std::mutex guard; // of what follows
    std::optional<PictureRequest> first;
    std::deque<PictureRequest> waiting;
    std::vector<PictureResult> results;
    int workers = 0;
    bool isToldSoon = false; // a call to the main thread is under way

    QThreadPool threads; // last: it goes first
};
