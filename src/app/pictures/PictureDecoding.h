#pragma once

#include "LoadedPicture.h"

class QIODevice;

/// More pixels than this are not decoded.
inline constexpr qint64 MOST_PIXELS_DECODED = 16'000'000;

/// Reads the picture in `input`, in at most `most` device pixels; with an empty `most` only its size. The content says
/// of which kind it is: the kinds that a project takes as images, and the device's form. As in the converter, a
/// camera's note to turn the picture is left alone, and of a moving picture there is the first one.
///
/// Any thread. `picture` is in a format that is drawn without a conversion.
[[nodiscard]] LoadedPicture DecodePicture(QIODevice &input, QSize most);

/// A picture in the middle of a square of `side` pixels, which is transparent around it. A small one is enlarged by a
/// whole number, and keeps its sharp pixels. What is white alone or black alone, with transparency, gets a grey ground.
[[nodiscard]] QImage InSquare(const QImage &picture, int side);

/// 1234567 as "1,234,567".
[[nodiscard]] QString Grouped(qint64 number);
