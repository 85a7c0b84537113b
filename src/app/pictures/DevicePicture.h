// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QString>

/// The header of a picture in the device's form, as the image converter writes it. docs/image-format.md describes the
/// layout.
class DevicePicture
{
public:
    static constexpr qsizetype HEADER_SIZE = 24;

    /// Returns whether a file with this beginning claims to be in the device's form.
    [[nodiscard]] static bool IsClaimedBy(QByteArrayView start) { return start.startsWith("MIMG"); }

    /// Takes the first bytes of a file, HEADER_SIZE or more.
    explicit DevicePicture(QByteArrayView start);

    /// What is wrong with the header, as half a sentence; empty if it is valid.
    [[nodiscard]] const QString &Problem() const { return problem; }
    /// The size in pixels. For this and the following functions, the header must be valid.
    [[nodiscard]] QSize Size() const { return {int(width), int(height)}; }
    /// The number of bytes of the file, up to the last pixel.
    [[nodiscard]] quint64 FileSize() const { return headerSize + dataSize; }
    /// The pixels of a whole file; null if the file is truncated.
    [[nodiscard]] QImage Pixels(QByteArrayView file) const;

private:
    void Check();

    quint8 version = 0;
    quint8 format = 0;
    quint8 encoding = 0;
    quint64 headerSize = 0;
    quint64 width = 0;
    quint64 height = 0;
    quint64 stride = 0;
    quint64 dataSize = 0;
    QString problem;
};
