// SPDX-License-Identifier: MIT
#include "PreviewTexts.h"

#include "LoadedPicture.h"
#include "PictureDecoding.h"

namespace
{

constexpr qint64 PAYLOAD_ALIGNMENT = 4;

QString Bytes(qint64 count)
{
    return count == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(Grouped(count));
}

/// The bytes of a file in the payload, including the padding to PAYLOAD_ALIGNMENT.
QString PayloadBytes(qint64 fileBytes)
{
    return Bytes((fileBytes + PAYLOAD_ALIGNMENT - 1) / PAYLOAD_ALIGNMENT * PAYLOAD_ALIGNMENT);
}

QString PayloadText(qint64 fileBytes, const ConvertedPicture &converted)
{
    return converted.isMade ? QStringLiteral("%1 converted").arg(PayloadBytes(converted.bytes))
                            : QStringLiteral("%1 as it is").arg(PayloadBytes(fileBytes));
}

QString PictureText(const PreviewedFile &file, QSize size)
{
    const QString screen =
        file.screenName.isEmpty() ? QStringLiteral("any screen") : QStringLiteral("%1 screen").arg(file.screenName);
    return size.isEmpty() ? screen
                          : QStringLiteral("%1 x %2 px, %3").arg(Grouped(size.width()), Grouped(size.height()), screen);
}

QString NoteText(const LoadedPicture &loaded, const ConvertedPicture &converted)
{
    if (converted.isAwaited)
        return {};
    if (converted.isMade && converted.problem.isEmpty())
        return QStringLiteral("Shown as on the device.");
    QString note = loaded.problem.isEmpty() ? QStringLiteral("Shown as it is in the file.")
                                            : QStringLiteral("Not shown: %1.").arg(loaded.problem);
    if (!converted.problem.isEmpty())
        note += QStringLiteral(" The converter %1.").arg(converted.problem);
    else if (!converted.isTaken && loaded.problem.isEmpty())
        note += QStringLiteral(" Only bmp, gif, jpg and png can be converted.");
    return note;
}

} // namespace

PreviewTexts TextsOf(const PreviewedFile &file, const LoadedPicture &loaded, const ConvertedPicture &converted)
{
    PreviewTexts texts;
    if (file.isImage)
        texts.picture = PictureText(file, loaded.size);
    texts.file = loaded.bytes < 0 ? loaded.problem : Bytes(loaded.bytes);
    if (loaded.bytes < 0 || !file.isImage)
        return texts;
    texts.payload = PayloadText(loaded.bytes, converted);
    texts.note = NoteText(loaded, converted);
    const bool isLarger = loaded.size.width() > file.screen.width() || loaded.size.height() > file.screen.height();
    if (!file.screen.isEmpty() && isLarger)
        texts.mark = QStringLiteral("Larger than the screen");
    return texts;
}

QSize ZoomedSize(QSize picture, QSize place, int mostZoom)
{
    if (picture.isEmpty() || place.isEmpty())
        return {};
    const int zoom = qMin(place.width() / picture.width(), place.height() / picture.height());
    if (zoom >= 1)
        return picture * qMin(zoom, mostZoom);
    return picture.scaled(place, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}
