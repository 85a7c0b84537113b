// SPDX-License-Identifier: MIT
#include "PictureModule.h"

#include "PngAlpha.h"
#include "Readers.h"

#include <algorithm>

namespace
{

/// Adds pixels to a count: the alpha of each is one of `step` bytes.
void Add(const std::uint8_t *alphas, size_t pixels, size_t step, PictureAlpha &alpha)
{
    std::uint32_t transparent = 0;
    std::uint8_t lowest = 255;
    for (size_t i = 0; i < pixels; ++i) {
        transparent += alphas[i * step] != 255;
        lowest = std::min(lowest, alphas[i * step]);
    }
    alpha.transparent += transparent;
    alpha.lowest = std::min(alpha.lowest, int(lowest));
}

/// Counts the alpha of a PNG, in the form that most have, without decoding the colours. Returns false if it has another
/// form or is damaged.
bool CountPngAlpha(Bytes file, PictureAlpha &alpha)
{
    PngAlpha rows;
    if (!rows.Open(file))
        return false;
    alpha.pixels = quint64(rows.Width()) * rows.Height();
    while (alpha.CanBeFew() && rows.Next())
        Add(rows.Row().data(), rows.Width(), 1, alpha);
    return !rows.HasFailed();
}

/// Counts the alpha of the first rows of a PNG, until it is known that many pixels are transparent.
void CountFirstRows(Bytes start, std::uint32_t count, PictureAlpha &alpha)
{
    PngAlpha rows;
    alpha = {};
    if (!rows.OpenStart(start, count))
        return;
    alpha.pixels = quint64(rows.Width()) * rows.Height();
    while (alpha.CanBeFew() && rows.Next())
        Add(rows.Row().data(), rows.Width(), 1, alpha);
}

/// Returns whether the first rows of a PNG show that many of its pixels are transparent. Most icons show it in the very
/// first rows; if these are opaque, the whole picture must be decoded anyway.
bool HasMuchAlpha(Bytes start, PictureAlpha &alpha)
{
    constexpr std::uint32_t FEW_ROWS = 2;
    constexpr std::uint32_t MORE_ROWS = 24;
    CountFirstRows(start, FEW_ROWS, alpha);
    if (alpha.transparent > 0 && alpha.CanBeFew())
        CountFirstRows(start, MORE_ROWS, alpha);
    return !alpha.CanBeFew();
}

bool CountAlphaOf(const QByteArray &bytes, PictureBytes part, PictureAlpha &alpha)
{
    const Bytes file(reinterpret_cast<const std::uint8_t *>(bytes.constData()), size_t(bytes.size()));
    alpha = {};
    if (part == PictureBytes::Start)
        return HasMuchAlpha(file, alpha);
    if (CountPngAlpha(file, alpha))
        return true;
    Picture picture(DeviceFormat::maxPixels);
    if (ReadPicture(file, picture).HasFailed())
        return false;
    picture.Finish();
    alpha = {};
    alpha.pixels = quint64(picture.Width()) * picture.Height();
    const Bytes device = picture.DeviceBytes();
    constexpr size_t PIXEL_FORMAT = 5; // the offset of the field
    if (device[PIXEL_FORMAT] == std::uint8_t(DeviceFormat::PixelFormat::Argb8888))
        Add(device.data() + DeviceFormat::headerSize + 3, alpha.pixels, 4, alpha);
    return true;
}

std::optional<quint64> Measure(const QByteArray &bytes, QString &fault)
{
    Picture picture(DeviceFormat::maxPixels);
    const Outcome outcome =
        ReadPicture({reinterpret_cast<const std::uint8_t *>(bytes.constData()), size_t(bytes.size())}, picture);
    if (outcome.HasFailed()) {
        fault = QString::fromUtf8(outcome.Text());
        return std::nullopt;
    }
    picture.Finish();
    return picture.DeviceBytes().size();
}

} // namespace

// The symbol that PICTURE_FUNCTIONS names.
extern "C" __attribute__((visibility("default"))) const PictureFunctions MorvanitePictures = {CountAlphaOf, Measure};
