// SPDX-License-Identifier: MIT
#include "PreviewPictures.h"

#include "DrawnPart.h"

#include <QPainterPath>

namespace
{

constexpr QSize WALLPAPER_SIZE(197, 241);
constexpr QSize PLACEHOLDER_SIZE(107, 94);
constexpr int LARGEST_KEPT = 4 << 20;  // device pixels of a whole wallpaper
constexpr int LONGEST_KEPT = 16 << 10; // device pixels of a side of a wallpaper
constexpr int TALLEST_KEPT = 4096;     // device pixels: the height of a placeholder
constexpr qsizetype CACHED_BYTES = 8 * 1024 * 1024;
constexpr int STRIP_WIDTH = 64;

/// A wave across the picture, filled down to its lower edge.
QPainterPath Wave(const QSizeF &size, qreal from, qreal middle, qreal to)
{
    const qreal w = size.width();
    const qreal h = size.height();
    QPainterPath path(QPointF(0, from * h));
    path.cubicTo(0.35 * w, (from - 0.12) * h, 0.6 * w, (middle + 0.1) * h, w, to * h);
    path.lineTo(w, h);
    path.lineTo(0, h);
    path.closeSubpath();
    return path;
}

QImage DrawnWallpaper()
{
    QImage image(WALLPAPER_SIZE, QImage::Format_RGB32);
    const QRectF rect(QPointF(), WALLPAPER_SIZE);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(rect.topLeft(), rect.bottomLeft());
    sky.setColorAt(0, QColor(0xE4, 0xEB, 0xF2));
    sky.setColorAt(1, QColor(0xB9, 0xC7, 0xD6));
    painter.fillRect(rect, sky);
    QRadialGradient glow(QPointF(rect.width() * 0.75, rect.height() * 0.15), rect.width());
    glow.setColorAt(0, QColor(0xFF, 0xFF, 0xFF, 0x90));
    glow.setColorAt(1, QColor(0xFF, 0xFF, 0xFF, 0));
    painter.fillRect(rect, glow);
    painter.fillPath(Wave(rect.size(), 0.72, 0.55, 0.62), QColor(0xA9, 0xBB, 0xCE, 0x50));
    painter.fillPath(Wave(rect.size(), 0.86, 0.8, 0.72), QColor(0x93, 0xA9, 0xC0, 0x58));
    return image;
}

/// A pale, glossy gradient. All columns are equal, so a strip is repeated to fill any width.
QImage DrawnPlaceholder()
{
    QImage image(PLACEHOLDER_SIZE, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient gloss(QPointF(0, 0), QPointF(0, PLACEHOLDER_SIZE.height()));
    gloss.setColorAt(0, QColor(0xFD, 0xFE, 0xFF));
    gloss.setColorAt(0.46, QColor(0xF0, 0xF3, 0xF7));
    gloss.setColorAt(0.54, QColor(0xE6, 0xEB, 0xF1));
    gloss.setColorAt(1, QColor(0xF3, 0xF6, 0xF9));
    painter.fillRect(image.rect(), gloss);
    return image;
}

QPixmap Stretched(const QImage &picture, QSize size, qreal scale)
{
    QPixmap pixmap = QPixmap::fromImage(picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation),
                                        Qt::NoFormatConversion);
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

qreal ScaleOf(const QPainter &painter)
{
    return painter.device()->devicePixelRatioF();
}

} // namespace

PreviewPictures::PreviewPictures()
    : wallpaper(DrawnWallpaper()), placeholder(DrawnPlaceholder()), placeholders(CACHED_BYTES)
{
}

void PreviewPictures::DrawWallpaper(QPainter &painter, const QRectF &rect, const QRect &view)
{
    const qreal scale = ScaleOf(painter);
    const QSizeF size = rect.size() * scale;
    if (size.width() * size.height() > LARGEST_KEPT || qMax(size.width(), size.height()) > LONGEST_KEPT)
        return DrawPart(painter, wallpaper, rect, view);
    if (stretchedWallpaper.size() != size.toSize() || stretchedWallpaper.devicePixelRatio() != scale)
        stretchedWallpaper = Stretched(wallpaper, size.toSize(), scale);
    painter.drawPixmap(rect.topLeft(), stretchedWallpaper);
}

void PreviewPictures::DrawPlaceholder(QPainter &painter, const QRectF &rect, const QRect &view)
{
    const qreal scale = ScaleOf(painter);
    if (rect.height() * scale > TALLEST_KEPT)
        return DrawPart(painter, placeholder, rect, view);
    const int height = qMax(1, qRound(rect.height() * scale));
    QPixmap *strip = placeholders.object(height);
    if (!strip || strip->devicePixelRatio() != scale) {
        strip = new QPixmap(Stretched(placeholder, QSize(STRIP_WIDTH, height), scale));
        placeholders.insert(height, strip, qsizetype(STRIP_WIDTH) * height * 4);
    }
    const qreal left = qMax(rect.left(), qreal(view.left()));
    const qreal right = qMin(rect.right(), qreal(view.right() + 1));
    if (left < right)
        painter.drawTiledPixmap(QRectF(left, rect.top(), right - left, rect.height()), *strip);
}
