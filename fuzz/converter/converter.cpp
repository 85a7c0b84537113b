// SPDX-License-Identifier: MIT
#include "Readers.h"

/// Runs the picture readers of the converter, selected by the first bytes as in the program. Pictures are small here,
/// since most of the time would be spent clearing memory otherwise.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Picture picture(1 << 18);
    if (ReadPicture({data, size}, picture).HasFailed())
        return 0;
    picture.Finish();
    const Bytes bytes = picture.DeviceBytes();
    const std::uint64_t pixelSize = bytes[5] == std::uint8_t(DeviceFormat::PixelFormat::Argb8888) ? 4 : 2;
    const std::uint64_t stride = (picture.Width() * pixelSize + 3) / 4 * 4;
    if (bytes.size() != DeviceFormat::headerSize + stride * picture.Height())
        __builtin_trap();
    return 0;
}
