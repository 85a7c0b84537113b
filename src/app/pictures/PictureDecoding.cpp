// SPDX-License-Identifier: MIT
#include "PictureDecoding.h"

#include "DevicePicture.h"

#include <QImageReader>
#include <QLocale>
#include <QPainter>

namespace
{

struct Kind
{
    QByteArrayView firstBytes;
    const char *format; // its name for QImageReader
};

// Other installed readers are not used, because they may not be safe for files from untrusted sources.
constexpr Kind KINDS[] = {
    {"BM", "bmp"},
    {"GIF8", "gif"},
    {"\xFF\xD8\xFF", "jpeg"},
    {"\x89PNG\r\n\x1A\n", "png"},
};

const QColor GROUND(0x90, 0x90, 0x90); // white and black are visible on it

const char *FormatOf(QByteArrayView start)
{
    for (const Kind &kind : KINDS) {
        if (start.startsWith(kind.firstBytes))
            return kind.format;
    }
    return nullptr;
}

/// The size at which a picture is shown: its own size, or reduced to fit `most`.
QSize Fitted(QSize size, QSize most)
{
    if (size.width() <= most.width() && size.height() <= most.height())
        return size;
    return size.scaled(most, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

/// Converts an image to the format in which it is drawn, and to at most `most` pixels.
QImage ReadyToDraw(QImage image, QSize most)
{
    image = std::move(image).convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                     : QImage::Format_RGB32);
    const QSize shown = Fitted(image.size(), most);
    return shown == image.size() ? image : image.scaled(shown, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Returns whether a jpg has more scans than the converter reads. Each scan takes as long as decoding all pixels, but
/// can have few bytes. Resets the input to its start.
bool HasTooManyScans(QIODevice &input)
{
    constexpr int MOST_SCANS = 256;
    constexpr qint64 CHUNK = 1 << 16;
    int scans = 0;
    QByteArray chunk;
    do {
        chunk = chunk.right(1) + input.read(CHUNK); // a marker can be split between two chunks
        scans += int(chunk.count("\xFF\xDA"));
    } while (chunk.size() > 1 && scans <= MOST_SCANS);
    return !input.seek(0) || scans > MOST_SCANS;
}

/// Returns whether a picture with transparency is only white or only black, so that it would be invisible in a list of
/// that colour.
bool MayVanish(const QImage &picture)
{
    constexpr int LIGHT = 0xD0;
    constexpr int DARK = 0x30;
    constexpr int FAINT = 0x40; // alpha
    if (!picture.hasAlphaChannel())
        return false;
    bool isLight = true;
    bool isDark = true;
    for (int y = 0; y < picture.height() && (isLight || isDark); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb color = picture.pixelColor(x, y).rgba();
            if (qAlpha(color) < FAINT)
                continue;
            isLight = isLight && qGray(color) > LIGHT;
            isDark = isDark && qGray(color) < DARK;
        }
    }
    return isLight || isDark;
}

/// Stores the size. If the picture is too large or has no size, stores the reason and returns false.
bool TakeSize(LoadedPicture &loaded, QSize size)
{
    size = {size.width(), int(qMin(qAbs(qint64(size.height())), qint64(INT_MAX)))}; // below 0 in a top-down bmp
    if (size.isEmpty()) {
        loaded.problem = QStringLiteral("it is damaged");
        return false;
    }
    loaded.size = size;
    if (qint64(size.width()) * size.height() > MOST_PIXELS_DECODED)
        loaded.problem = QStringLiteral("it has %1 x %2 pixels, more than %3 megapixels")
                             .arg(Grouped(size.width()), Grouped(size.height()))
                             .arg(MOST_PIXELS_DECODED / 1'000'000);
    return loaded.problem.isEmpty();
}

LoadedPicture DecodeDevicePicture(QIODevice &input, QSize most)
{
    LoadedPicture loaded;
    const DevicePicture header(input.peek(DevicePicture::HEADER_SIZE));
    loaded.problem = header.Problem();
    if (!loaded.problem.isEmpty() || !TakeSize(loaded, header.Size()) || most.isEmpty())
        return loaded;
    // A header can claim 4 GiB, which must not be allocated.
    if (quint64(input.size()) >= header.FileSize())
        loaded.picture = header.Pixels(input.read(qint64(header.FileSize())));
    if (loaded.picture.isNull())
        loaded.problem = QStringLiteral("it ends too early");
    else
        loaded.picture = ReadyToDraw(std::move(loaded.picture), most);
    return loaded;
}

} // namespace

QString Grouped(qint64 number)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
}

LoadedPicture DecodePicture(QIODevice &input, QSize most)
{
    const QByteArray start = input.peek(8);
    if (DevicePicture::IsClaimedBy(start))
        return DecodeDevicePicture(input, most);
    LoadedPicture loaded;
    const QByteArray format = FormatOf(start);
    if (format.isEmpty()) {
        loaded.problem = QStringLiteral("it is not a bmp, gif, jpg or png picture");
        return loaded;
    }
    const bool isJpg = format == "jpeg";
    if (isJpg && HasTooManyScans(input)) {
        loaded.problem = QStringLiteral("it has more scans than a picture needs");
        return loaded;
    }
    QImageReader reader(&input, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(false);
    if (!TakeSize(loaded, reader.size()) || most.isEmpty())
        return loaded;
    // A jpg is decoded faster at a smaller size. Other formats would be scaled without regard to transparency.
    if (isJpg)
        reader.setScaledSize(Fitted(loaded.size, most));
    QImage image;
    if (reader.read(&image))
        loaded.picture = ReadyToDraw(std::move(image), most);
    else
        loaded.problem = QStringLiteral("it is damaged");
    return loaded;
}

QImage InSquare(const QImage &picture, int side)
{
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    const QSize size = picture.size() * qMax(1, side / qMax(picture.width(), picture.height()));
    const QRect place(QPoint((side - size.width()) / 2, (side - size.height()) / 2), size);
    QPainter painter(&square);
    if (MayVanish(picture))
        painter.fillRect(place, GROUND);
    painter.drawImage(place, picture);
    return square;
}
