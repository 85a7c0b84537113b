// SPDX-License-Identifier: MIT
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

/// A request to read a picture file.
struct PictureRequest
{
    QByteArray hostPath;
    QSize most;                     ///< in device pixels; empty: only the picture's size
    bool isThumbnail = false;       ///< in a square of `most`
    std::optional<FileStamp> known; ///< the stamp that is known already; a file that still has it isn't read
    quint64 number = 0;             ///< for the requester's use
    bool isWhole = false;           ///< of a thumbnail: with the picture's proportions, not in a square
};

struct PictureResult
{
    PictureRequest request;
    LoadedPicture picture;
    FileStamp stamp;
    bool isUnchanged = false; ///< the file still has the known stamp, and there is no picture
};

/// Threads that read picture files, as many as there are cores, at a lower priority than the rest of the
/// program. They read the newest request first. The main thread owns this object and gets the results in bursts.
class PictureWorkers : public QObject
{
public:
    explicit PictureWorkers(std::function<void(std::vector<PictureResult>)> tellResults);
    /// Waits for the files that are being read. Their reading ends early, and their results are dropped.
    ~PictureWorkers() override;

    /// Requests a thumbnail. If more than 512 requests wait, drops the oldest and returns it.
    [[nodiscard]] std::optional<PictureRequest> AddThumbnail(PictureRequest request);
    /// Requests a picture that is read before all thumbnails. Replaces such a request that is still waiting.
    void AddFirst(PictureRequest request);
    /// Drops the waiting requests for thumbnails.
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

    std::mutex guard; // of the following members
    std::optional<PictureRequest> first;
    std::deque<PictureRequest> waiting;
    std::vector<PictureResult> results;
    int workers = 0;
    bool isToldSoon = false; // a call to the main thread is under way

    QThreadPool threads; // the last member, so that it is destroyed first
};
