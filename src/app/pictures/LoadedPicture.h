#pragma once

#include <QImage>
#include <QString>

/// A picture file, as far as it can be shown.
struct LoadedPicture
{
    QSize size;        ///< of the picture in the file, in pixels; empty when it can't be read
    QImage picture;    ///< no larger than was asked for; null when the picture can't be shown
    QString problem;   ///< why it can't be shown, as half a sentence; empty when it can
    qint64 bytes = -1; ///< of the file; below 0 when there is no such file
};
