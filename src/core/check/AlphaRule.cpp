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
    PictureAlpha alpha;
};

/// Decodes pictures in several threads. Those that can't be decoded keep an alpha without pixels.
void CountAll(const FileCheckInput &input, std::vector<AlphaOfFile> &pictures)
{
    std::atomic<size_t> next = 0;
    RunInThreads(ThreadsFor(pictures.size(), PICTURES_WORTH_A_THREAD, MOST_THREADS), [&](size_t) {
        for (size_t i = next++; i < pictures.size() && !input.files.IsStopped(); i = next++) {
            QByteArray bytes;
            PictureAlpha alpha;
            if (ReadFile(pictures[i].file->found, bytes, LARGEST_FILE) == 0 && input.countAlpha(bytes, alpha))
                pictures[i].alpha = alpha;
        }
    });
}

} // namespace

void ImageAlphaFew(const FileCheckInput &input, RuleReport &report)
{
    std::vector<AlphaOfFile> pictures;
    for (const SurveyedFile &file : input.files.Files()) {
        if (file.isImage && file.picture.hasAlpha && file.picture.fault.isEmpty())
            pictures.push_back({&file, {}});
    }
    if (!input.countAlpha || pictures.empty())
        return;
    CountAll(input, pictures);
    for (const auto &[file, alpha] : pictures) {
        if (alpha.transparent == 0 || !alpha.CanBeFew())
            continue;
        const auto &[width, height] = std::pair(file->picture.width, file->picture.height);
        const quint64 saved = DevicePictureSize(width, height, false) - DevicePictureSize(width, height, true);
        report.Add(input.files.About(
            *file, u"%1 of the %2 pixels of %3 aren't opaque, and none has an alpha below %4; an opaque image needs %5 "
                   "bytes less"_s.arg(alpha.transparent)
                       .arg(alpha.pixels)
                       .arg(file->stored)
                       .arg(alpha.lowest)
                       .arg(saved)));
    }
}
