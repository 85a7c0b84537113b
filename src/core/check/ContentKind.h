// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

/// What a file contains, according to its first bytes.
enum class ContentKind : quint8
{
    Unknown,
    Bmp,
    Gif,
    Jpeg,
    Png,
    WebP,
    Svg,
    DeviceImage, ///< a picture in the device's own format
    Wave,
    Mp3,
    Midi,
    Ogg,
    Amr,
    Asf, ///< of wma and wmv files too
    Avi,
    Mp4, ///< of 3gp files too
    RealMedia,
};

/// Returns the kind of content of a file that begins with these bytes. 4 KiB are enough for all kinds.
[[nodiscard]] ContentKind ContentOf(QByteArrayView start);

/// Returns the kind of content that files with an extension have, regardless of case; Unknown for other extensions.
[[nodiscard]] ContentKind ContentOfExtension(QStringView extension);

/// True for the kinds that the picture converter reads.
[[nodiscard]] bool IsConvertible(ContentKind kind);

/// True if a file of that kind always begins with bytes from which the kind can be told.
[[nodiscard]] bool HasReliableStart(ContentKind kind);

/// Returns the name of a kind for messages, such as "PNG".
[[nodiscard]] QString NameOf(ContentKind kind);
