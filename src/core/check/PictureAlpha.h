// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// How transparent the pixels of a picture are.
struct PictureAlpha
{
    quint64 pixels = 0;
    quint64 transparent = 0; ///< pixels with an alpha below 255
    int lowest = 255;        ///< the smallest alpha

    /// Returns whether, of these pixels, so few are transparent or so slightly that it is perhaps a mistake. Once it is
    /// false, further transparent pixels don't change it.
    [[nodiscard]] bool CanBeFew() const
    {
        constexpr quint64 FEW = 100; // one of so many pixels, or fewer
        constexpr int NEARLY_OPAQUE = 250;
        return transparent <= pixels / FEW || lowest >= NEARLY_OPAQUE;
    }
};

/// The part of a file that bytes are.
enum class PictureBytes
{
    Whole,
    Start, ///< the file may have more
};

/// Counts the pixels of a picture file by their alpha. May stop when `CanBeFew` is false. Returns false if the file
/// can't be decoded. If only the start of the file is given, it returns true only if that is enough to know that
/// `CanBeFew` is false, and decodes no more than is needed for that; the rest of the file may be damaged. The decoders
/// are in a library of their own, which not every program loads.
using CountAlpha = bool (*)(const QByteArray &bytes, PictureBytes part, PictureAlpha &alpha);
