// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// How transparent the pixels of a picture are.
struct PictureAlpha
{
    quint64 pixels = 0;
    quint64 transparent = 0; ///< pixels with an alpha below 255
    int lowest = 255;        ///< the smallest alpha
};

/// Decodes a picture file, given its bytes, and counts its pixels by their alpha. Returns false if the file can't be
/// decoded. The decoders are in a library of their own, which not every program loads.
using CountAlpha = bool (*)(const QByteArray &bytes, PictureAlpha &alpha);
