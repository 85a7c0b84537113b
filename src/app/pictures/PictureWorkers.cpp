// SPDX-License-Identifier: MIT
#include "PictureWorkers.h"

#include "PictureDecoding.h"
#include "PictureInput.h"
#include "SignalCleanup.h"

#include <QTimer>

#include <sys/resource.h>
#include <unistd.h>

namespace
{

constexpr size_t MOST_WAITING = 512;
constexpr int BURST_MS = 25; // each burst makes the list repaint
constexpr int NICENESS = 10;

PictureResult Read(PictureRequest request, const std::atomic<bool> &isStopped)
{
    PictureResult result;
    PictureInput input(request.hostPath, isStopped);
    result.stamp = input.Stamp();
    if (request.known == result.stamp) {
        result.isUnchanged = true;
    } else if (input.isOpen()) {
        result.picture = DecodePicture(input, request.most);
        if (input.IsOutOfTime())
            result.picture = {result.picture.size, {}, QStringLiteral("it takes too long to read"), -1};
        if (request.isThumbnail && !request.isWhole && !result.picture.picture.isNull())
            result.picture.picture = InSquare(result.picture.picture, request.most.width());
    } else {
        result.picture.problem = input.Problem();
    }
    result.picture.bytes = input.Bytes();
    result.request = std::move(request);
    return result;
}

} // namespace

PictureWorkers::PictureWorkers(std::function<void(std::vector<PictureResult>)> tellResults)
    : tell(std::move(tellResults))
{
}

PictureWorkers::~PictureWorkers()
{
    isStopped = true;
    threads.waitForDone();
}

std::optional<PictureRequest> PictureWorkers::AddThumbnail(PictureRequest request)
{
    std::optional<PictureRequest> dropped;
    const std::unique_lock lock(guard);
    waiting.push_back(std::move(request));
    if (waiting.size() > MOST_WAITING) {
        dropped = std::move(waiting.front());
        waiting.pop_front();
    }
    StartWorker(lock);
    return dropped;
}

void PictureWorkers::AddFirst(PictureRequest request)
{
    const std::unique_lock lock(guard);
    first = std::move(request);
    StartWorker(lock);
}

void PictureWorkers::DropThumbnails()
{
    const std::unique_lock lock(guard);
    waiting.clear();
}

void PictureWorkers::StartWorker(const std::unique_lock<std::mutex> &)
{
    if (workers == threads.maxThreadCount())
        return;
    ++workers;
    const SignalHold hold; // the pool may start a thread
    threads.start([this] { Work(); });
}

void PictureWorkers::Work()
{
    // The system's usual scheduler ignores priorities of threads, but uses a thread's niceness.
    setpriority(PRIO_PROCESS, id_t(gettid()), NICENESS);
    while (auto request = NextRequest())
        Add(Read(std::move(*request), isStopped));
}

/// The next request. Nothing if the worker must end, in which case it is no longer counted.
std::optional<PictureRequest> PictureWorkers::NextRequest()
{
    const std::unique_lock lock(guard);
    std::optional<PictureRequest> next;
    if (!isStopped && first) {
        next.swap(first);
    } else if (!isStopped && !waiting.empty()) {
        next = std::move(waiting.back());
        waiting.pop_back();
    } else {
        --workers;
    }
    return next;
}

void PictureWorkers::Add(PictureResult result)
{
    const std::unique_lock lock(guard);
    results.push_back(std::move(result));
    if (!std::exchange(isToldSoon, true))
        QMetaObject::invokeMethod(
            this, [this] { TellSoon(); }, Qt::QueuedConnection);
}

void PictureWorkers::TellSoon()
{
    const qint64 wait = sinceTold.isValid() ? BURST_MS - sinceTold.elapsed() : 0;
    if (wait > 0)
        QTimer::singleShot(int(wait), this, [this] { Tell(); });
    else
        Tell();
}

void PictureWorkers::Tell()
{
    std::vector<PictureResult> burst;
    {
        const std::unique_lock lock(guard);
        burst.swap(results);
        isToldSoon = false;
    }
    sinceTold.start();
    tell(std::move(burst));
}
