// SPDX-License-Identifier: MIT
#include "PngAlpha.h"
#include "Readers.h"

#include <cstring>

namespace
{

constexpr std::uint64_t MAX_PIXELS = 1 << 18;

/// The alpha of a PNG that is read without the colours must be that of the whole picture. `device` is null if the whole
/// picture can't be read.
void CompareAlpha(Bytes file, const std::uint8_t *device)
{
    PngAlpha alpha;
    if (file.size() < 8 || std::memcmp(file.data(), "\x89PNG\r\n\x1A\n", 8) != 0 || !alpha.Open(file) ||
        std::uint64_t{alpha.Width()} * alpha.Height() > MAX_PIXELS)
        return;
    const bool hasAlpha = device != nullptr && device[5] == std::uint8_t(DeviceFormat::PixelFormat::Argb8888);
    const std::uint8_t *pixel = device != nullptr ? device + DeviceFormat::headerSize : nullptr;
    PngAlpha start;
    const bool hasStart = start.OpenStart(file, alpha.Height() / 2 + 1);
    while (alpha.Next()) {
        if (hasStart && start.Next() && std::memcmp(start.Row().data(), alpha.Row().data(), alpha.Width()) != 0)
            __builtin_trap();
        for (const std::uint8_t value : alpha.Row()) {
            if (device != nullptr && value != (hasAlpha ? pixel[3] : 255))
                __builtin_trap();
            pixel += hasAlpha ? 4 : 0;
        }
    }
    if (alpha.HasFailed() != (device == nullptr))
        __builtin_trap();
}

} // namespace

/// Runs the picture readers of the converter, selected by the first bytes as in the program. Pictures are small here,
/// since most of the time would be spent clearing memory otherwise.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Picture picture(MAX_PIXELS);
    if (ReadPicture({data, size}, picture).HasFailed()) {
        CompareAlpha({data, size}, nullptr);
        return 0;
    }
    picture.Finish();
    const Bytes bytes = picture.DeviceBytes();
    CompareAlpha({data, size}, bytes.data());
    const std::uint64_t pixelSize = bytes[5] == std::uint8_t(DeviceFormat::PixelFormat::Argb8888) ? 4 : 2;
    const std::uint64_t stride = (picture.Width() * pixelSize + 3) / 4 * 4;
    if (bytes.size() != DeviceFormat::headerSize + stride * picture.Height())
        __builtin_trap();
    return 0;
}
