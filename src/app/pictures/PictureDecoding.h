// SPDX-License-Identifier: MIT
#pragma once

#include "LoadedPicture.h"

class QIODevice;

/// Pictures with more pixels than this are not decoded.
inline constexpr qint64 MOST_PIXELS_DECODED = 16'000'000;

/// Reads the picture in `input`, at a size of at most `most` device pixels; with an empty `most`, only its size. The
/// content determines the format: one of the formats that a project accepts as images, or the device's form. As in the
/// converter, the orientation that a camera has stored is ignored, and only the first frame of an animation is read.
///
/// Can be called in any thread. `picture` has a format that can be drawn without a conversion.
[[nodiscard]] LoadedPicture DecodePicture(QIODevice &input, QSize most);

/// A picture in the middle of a square of `side` pixels, with transparent margins. A small picture is enlarged by a
/// whole number and keeps its sharp pixels. A picture that is only white or only black, with transparency, gets a grey
/// background.
[[nodiscard]] QImage InSquare(const QImage &picture, int side);

/// 1234567 as "1,234,567".
[[nodiscard]] QString Grouped(qint64 number);
