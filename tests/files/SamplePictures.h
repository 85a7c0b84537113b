// SPDX-License-Identifier: MIT
#pragma once

#include <QBuffer>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QImage>
#include <QTimer>

inline QByteArray Encoded(const QImage &image, const char *format)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, format);
    return bytes.data();
}

/// Returns a PNG of one colour.
inline QByteArray Png(int width, int height, const QColor &color, QImage::Format format = QImage::Format_ARGB32)
{
    QImage image(width, height, format);
    image.fill(color);
    return Encoded(image, "PNG");
}

/// Returns a small PNG whose header has another size, with the right checksum.
inline QByteArray PngThatClaims(quint32 width, quint32 height)
{
    QByteArray png = Png(1, 1, Qt::red);
    constexpr int KIND = 12; // the type of the first chunk; its 13 bytes of data and the checksum follow
    constexpr int DATA = KIND + 4;
    const auto put = [&png](int at, quint32 value) {
        for (int i = 0; i < 4; ++i)
            png[at + i] = char(value >> (24 - 8 * i));
    };
    put(DATA, width);
    put(DATA + 4, height);
    quint32 sum = ~0U;
    for (const char byte : png.sliced(KIND, 4 + 13)) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320U : 0);
    }
    put(DATA + 13, ~sum);
    return png;
}

/// Returns a red JPG in CMYK, 8 x 8.
inline QByteArray JpgOfInks()
{
    return QByteArray::fromHex(
        "ffd8ffee000e41646f626500640000000000ffdb004300100b0c0e0c0a100e0d0e1211101318281a181616183123251d283a333d3c3933"
        "383740485c4e404457453738506d51575f626768673e4d71797064785c656763ffc000140800080008044311004d11005911004b1100ff"
        "c40014000100000000000000000000000000000007ffc40014100100000000000000000000000000000000ffda000e0443004d0059004b"
        "00003f00401f8fc80fffd9");
}

/// Returns an animation of a red and a green frame, 3 x 2.
inline QByteArray MovingGif()
{
    return QByteArray::fromHex(
        "47494638396103000200810000ff000000ff0000000000000021f90400050000002c00000000030002000008060001081c18100021f904"
        "00050000002c00000000030002008100ff0000000000000000000008060001081c1810003b");
}

/// Processes events until the condition is true. Returns false after 10 seconds.
template <typename Condition> bool WaitUntil(Condition condition)
{
    for (const QDeadlineTimer deadline(10'000); !condition() && !deadline.hasExpired();) {
        QEventLoop loop;
        QTimer::singleShot(5, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return condition();
}
