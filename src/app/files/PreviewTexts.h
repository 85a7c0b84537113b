// SPDX-License-Identifier: MIT
#pragma once

#include "PicturePane.h"

struct LoadedPicture;

/// What is known of the device's form of a picture.
struct ConvertedPicture
{
    bool isTaken = false;   ///< the converter accepts this kind of picture
    bool isAwaited = false; ///< the conversion is running
    bool isMade = false;
    qint64 bytes = 0; ///< after the conversion
    QString problem;  ///< why it can't be shown, as the end of a sentence that begins with "The converter"
};

/// The texts of the preview of a file, each in its own line. Empty texts are not shown.
struct PreviewTexts
{
    QString picture; ///< its size, and the screen that it is for
    QString file;
    QString payload;
    QString mark; ///< says that the picture is larger than the screen
    QString note; ///< says what is shown, or why nothing is shown
};

/// The texts of a file. If the file hasn't been loaded yet, nothing is known of it.
[[nodiscard]] PreviewTexts TextsOf(const PreviewedFile &file, const LoadedPicture &loaded,
                                   const ConvertedPicture &converted);

/// The size at which a picture is drawn in a place, in device pixels. A small picture is enlarged by the largest whole
/// number up to `mostZoom`, and a large one is shrunk to fit.
[[nodiscard]] QSize ZoomedSize(QSize picture, QSize place, int mostZoom);
