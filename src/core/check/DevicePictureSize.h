// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Returns the bytes of a converted picture: a header and rows of whole 4 bytes. A pixel has 2 bytes, or 4 if one pixel
/// of the picture isn't opaque. The size is in pixels.
[[nodiscard]] constexpr quint64 DevicePictureSize(quint64 width, quint64 height, bool isOpaque)
{
    constexpr quint64 HEADER = 24;
    const quint64 row = isOpaque ? (width * 2 + 3) / 4 * 4 : width * 4;
    return HEADER + row * height;
}
