// SPDX-License-Identifier: MIT
#pragma once

#include "ContentKind.h"

class FileBlocks;

/// What the header of a picture says.
struct PictureHeader
{
    quint32 width = 0;  ///< pixels; 0 if the header can't be read
    quint32 height = 0; ///< pixels
    int bits = 0;       ///< of a pixel
    /// True if a pixel may be transparent: the picture has an alpha channel, a transparent colour or an empty border.
    bool hasAlpha = false;
    bool isInterlaced = false; ///< or progressive
    QString fault;             ///< why the picture can't be converted; empty if nothing is known
};

/// Reads the header of a BMP, GIF, JPEG or PNG file, given the kind that its first bytes have. The other bytes may be
/// anything. Finds a BMP or PNG file that is cut off, too. Pixels aren't read.
[[nodiscard]] PictureHeader ReadPictureHeader(FileBlocks &file, ContentKind kind);
