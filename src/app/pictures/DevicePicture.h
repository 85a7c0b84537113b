#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QString>

/// The header of a picture in the device's form, which the image converter makes; docs/image-format.md has the layout.
class DevicePicture
{
public:
    static constexpr qsizetype HEADER_SIZE = 24;

    /// Says whether a file that begins so claims to be one.
    [[nodiscard]] static bool IsClaimedBy(QByteArrayView start) { return start.startsWith("MIMG"); }

    /// Takes the first bytes of a file, HEADER_SIZE or more.
    explicit DevicePicture(QByteArrayView start);

    /// What is wrong with the header, as half a sentence; empty when it is right.
    [[nodiscard]] const QString &Problem() const { return problem; }
    /// In pixels. Here and below the header must be right.
    [[nodiscard]] QSize Size() const { return {int(width), int(height)}; }
    /// The bytes of the file up to the last pixel.
    [[nodiscard]] quint64 FileSize() const { return headerSize + dataSize; }
    /// The pixels of a whole file; null when it breaks off.
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
