// SPDX-License-Identifier: MIT
#include "PictureModule.h"

#include "Readers.h"

#include <algorithm>

namespace
{

bool CountAlphaOf(const QByteArray &bytes, PictureAlpha &alpha)
{
    Picture picture(DeviceFormat::maxPixels);
    if (ReadPicture({reinterpret_cast<const std::uint8_t *>(bytes.constData()), size_t(bytes.size())}, picture)
            .HasFailed())
        return false;
    picture.Finish();
    alpha = {};
    alpha.pixels = quint64(picture.Width()) * picture.Height();
    const Bytes device = picture.DeviceBytes();
    constexpr size_t PIXEL_FORMAT = 5; // the offset of the field
    if (device[PIXEL_FORMAT] != std::uint8_t(DeviceFormat::PixelFormat::Argb8888))
        return true;
    std::uint8_t lowest = 255;
    for (size_t at = DeviceFormat::headerSize + 3; at < device.size(); at += 4) {
        alpha.transparent += device[at] != 255;
        lowest = std::min(lowest, device[at]);
    }
    alpha.lowest = lowest;
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
