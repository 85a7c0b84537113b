// SPDX-License-Identifier: MIT
#include "DevicePicture.h"

#include "ByteReader.h"

#include <QtEndian>

namespace
{

constexpr quint8 VERSION = 1;
constexpr quint8 RGB565 = 1;
constexpr quint8 ARGB8888 = 2;
constexpr quint8 PLAIN = 0;
constexpr quint64 MOST_PIXELS = 64'000'000;

quint64 PixelSize(quint8 format)
{
    return format == RGB565 ? 2 : 4;
}

} // namespace

DevicePicture::DevicePicture(QByteArrayView start)
{
    if (start.size() < HEADER_SIZE || !IsClaimedBy(start)) {
        problem = QStringLiteral("it is not a picture in the device's format");
        return;
    }
    version = quint8(start[4]);
    format = quint8(start[5]);
    encoding = quint8(start[6]);
    headerSize = quint8(start[7]);
    const ByteReader fields(start);
    width = fields.U32(8).value_or(0);
    height = fields.U32(12).value_or(0);
    stride = fields.U32(16).value_or(0);
    dataSize = fields.U32(20).value_or(0);
    Check();
}

void DevicePicture::Check()
{
    if (version != VERSION || encoding != PLAIN || (format != RGB565 && format != ARGB8888))
        problem = QStringLiteral("its format is unknown (version %1, pixel format %2, encoding %3)")
                      .arg(version)
                      .arg(format)
                      .arg(encoding);
    else if (width == 0 || height == 0 || width * height > MOST_PIXELS)
        problem = QStringLiteral("its header says %1 x %2 pixels").arg(width).arg(height);
    else if (headerSize < quint64(HEADER_SIZE) || stride % 4 != 0 || stride < width * PixelSize(format) ||
             dataSize != stride * height)
        problem = QStringLiteral("its header is damaged (header size %1, stride %2, data size %3)")
                      .arg(headerSize)
                      .arg(stride)
                      .arg(dataSize);
}

QImage DevicePicture::Pixels(QByteArrayView file) const
{
    const auto pixels = ByteReader(file).Slice(headerSize, dataSize);
    if (!pixels)
        return {};
    QImage image(Size(), format == RGB565 ? QImage::Format_RGB16 : QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        const char *const row = pixels->data() + quint64(y) * stride;
        if (format == RGB565)
            qFromLittleEndian<quint16>(row, qsizetype(width), image.scanLine(y));
        else
            qFromLittleEndian<quint32>(row, qsizetype(width), image.scanLine(y));
    }
    return image;
}
