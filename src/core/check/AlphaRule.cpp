// SPDX-License-Identifier: MIT
#include "ImageRules.h"

#include "DevicePictureSize.h"
#include "HostFiles.h"
#include "RuleReport.h"
#include "Threads.h"

#include <atomic>

using namespace Qt::StringLiterals;

namespace
{

constexpr size_t MOST_THREADS = 4; // a picture can take 256 MiB while it is decoded
constexpr size_t PICTURES_WORTH_A_THREAD = 16;
constexpr qint64 LARGEST_FILE = qint64(512) << 20;

struct AlphaOfFile
{
    const SurveyedFile *file;
    std::optional<PictureAlpha> alpha;
};

/// Returns the alpha of a picture whose first bytes don't say enough; without pixels if it can't be decoded.
PictureAlpha AlphaOfWhole(const SurveyedFile &file, CountAlpha count)
{
    QByteArray bytes;
    PictureAlpha alpha;
    if (ReadFile(file.found, bytes, LARGEST_FILE) != 0)
        return {};
    // Of a large picture, much less than all is decoded to see that it has many transparent pixels.
    if (count(bytes, PictureBytes::Start, alpha) || count(bytes, PictureBytes::Whole, alpha))
        return alpha;
    return {};
}

/// Finds the alpha of those pictures that lack it, in several threads.
void CountMissing(const FileCheckInput &input, std::vector<AlphaOfFile> &pictures)
{
    std::vector<AlphaOfFile *> missing;
    for (AlphaOfFile &picture : pictures) {
        if (!picture.alpha)
            missing.push_back(&picture);
    }
    std::atomic<size_t> next = 0;
    RunInThreads(ThreadsFor(missing.size(), PICTURES_WORTH_A_THREAD, MOST_THREADS), [&](size_t) {
        for (size_t i = next++; i < missing.size() && !input.files.IsStopped(); i = next++)
            missing[i]->alpha = AlphaOfWhole(*missing[i]->file, input.countAlpha);
    });
}

} // namespace

void ImageAlphaFew(const FileCheckInput &input, RuleReport &report)
{
    if (!input.countAlpha)
        return;
    std::vector<AlphaOfFile> pictures;
    for (const SurveyedFile &file : input.files.Files()) {
        if (file.MayHaveAlpha())
            pictures.push_back({&file, file.alpha});
    }
    CountMissing(input, pictures);
    for (const auto &[file, known] : pictures) {
        const PictureAlpha alpha = known.value_or(PictureAlpha());
        if (alpha.transparent == 0 || !alpha.CanBeFew())
            continue;
        const auto &[width, height] = std::pair(file->picture.width, file->picture.height);
        const quint64 saved = DevicePictureSize(width, height, false) - DevicePictureSize(width, height, true);
        report.Add(input.files.About(
            *file, u"%1 of the %2 pixels of %3 aren't opaque, and the lowest alpha is %4; an opaque image needs %5 "
                   "bytes less"_s.arg(alpha.transparent)
                       .arg(alpha.pixels)
                       .arg(file->stored)
                       .arg(alpha.lowest)
                       .arg(saved)));
    }
}
