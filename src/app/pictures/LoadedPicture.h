// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

/// The result of loading a picture file.
struct LoadedPicture
{
    QSize size;        ///< of the picture in the file, in pixels; empty if it can't be read
    QImage picture;    ///< no larger than requested; null if the picture can't be shown
    QString problem;   ///< why it can't be shown, as half a sentence; empty if it can
    qint64 bytes = -1; ///< of the file; below 0 if there is no such file
};
