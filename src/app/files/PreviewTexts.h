#pragma once

#include "PicturePane.h"

struct LoadedPicture;

/// The device's form of a picture, as far as it is known.
struct ConvertedPicture
{
    bool isTaken = false;   ///< by the converter, which doesn't take all kinds
    bool isAwaited = false; ///< it is being made
    bool isMade = false;
    qint64 bytes = 0; ///< when it is made
    QString problem;  ///< why it can't be shown, for a sentence that begins with "The converter"
};

/// What the preview says of a file, in lines of their own. An empty text is not shown.
struct PreviewTexts
{
    QString picture; ///< its size, and the screen that it is for
    QString file;
    QString payload;
    QString mark; ///< that the picture is larger than the screen
    QString note; ///< what is shown, or why nothing is
};

/// Of a file that has been looked at, or is going to be: nothing is known of it then.
[[nodiscard]] PreviewTexts TextsOf(const PreviewedFile &file, const LoadedPicture &loaded,
                                   const ConvertedPicture &converted);

/// How large a picture is drawn in a place, both in device pixels: a small one by the largest whole number that isn't
/// more than `mostZoom`, a large one as it fits.
[[nodiscard]] QSize ZoomedSize(QSize picture, QSize place, int mostZoom);
