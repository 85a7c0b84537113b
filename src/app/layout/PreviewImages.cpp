// SPDX-License-Identifier: MIT
#include "PreviewImages.h"

#include <utility>

namespace
{

constexpr QSize LARGEST(1024, 1024); // pixels
constexpr qsizetype MOST_BYTES = qsizetype(64) << 20;

} // namespace

PreviewImages::PreviewImages(std::function<void()> loaded)
    : told(std::move(loaded)), workers([this](std::vector<PictureResult> results) { Take(std::move(results)); })
{
}

const PreviewImages::Image &PreviewImages::Of(const QByteArray &hostPath)
{
    Known &known = images[hostPath];
    if (!known.stamp && bytes < MOST_BYTES)
        Ask(hostPath, known);
    return known;
}

void PreviewImages::Refresh()
{
    for (auto known = images.begin(); known != images.end(); ++known) {
        if (known->stamp)
            Ask(known.key(), *known);
    }
}

void PreviewImages::Ask(const QByteArray &hostPath, Known &known)
{
    if (std::exchange(known.isAsked, true))
        return;
    PictureRequest request{hostPath, LARGEST, true, known.stamp, 0, true};
    if (const auto dropped = workers.AddThumbnail(std::move(request)))
        images[dropped->hostPath].isAsked = false; // the next paint requests it again
}

void PreviewImages::Take(std::vector<PictureResult> results)
{
    bool isAnyNew = false;
    for (PictureResult &result : results) {
        Known &known = images[result.request.hostPath];
        known.isAsked = false;
        known.stamp = result.stamp;
        if (result.isUnchanged)
            continue;
        isAnyNew = true;
        bytes += result.picture.picture.sizeInBytes() - known.picture.sizeInBytes();
        known.picture = std::move(result.picture.picture);
        known.size = result.picture.size;
    }
    if (isAnyNew)
        told();
}
