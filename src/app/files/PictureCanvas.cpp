// SPDX-License-Identifier: MIT
#include "PictureCanvas.h"

#include "PreviewTexts.h"

#include <QPainter>

namespace
{

// In device-independent pixels.
constexpr QSize LARGEST(224, 168);
constexpr QSize SMALLEST(64, 64);
constexpr int FRAME = 1;
constexpr int SQUARE = 6;
constexpr int MOST_ZOOM = 4;

void FillChequered(QPainter &painter, const QRectF &rect, bool isDark)
{
    // White and black pictures are visible on both.
    const QColor colors[] = {isDark ? QColor(0x70, 0x70, 0x70) : QColor(0xC8, 0xC8, 0xC8),
                             isDark ? QColor(0x5C, 0x5C, 0x5C) : QColor(0xB0, 0xB0, 0xB0)};
    painter.save();
    painter.setClipRect(rect);
    for (int row = 0; row * SQUARE < rect.height(); ++row) {
        for (int col = 0; col * SQUARE < rect.width(); ++col)
            painter.fillRect(QRectF(rect.x() + col * SQUARE, rect.y() + row * SQUARE, SQUARE, SQUARE),
                             colors[(row + col) % 2]);
    }
    painter.restore();
}

} // namespace

PictureCanvas::PictureCanvas(QWidget *parent) : QWidget(parent)
{
    setAccessibleName(QStringLiteral("Picture"));
    setMaximumSize(LARGEST + QSize(2 * FRAME, 2 * FRAME));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void PictureCanvas::Show(const QImage &shownPicture)
{
    picture = shownPicture;
    update();
}

QSize PictureCanvas::MostPixels() const
{
    return (QSizeF(LARGEST) * devicePixelRatioF()).toSize();
}

QSize PictureCanvas::sizeHint() const
{
    return maximumSize();
}

QSize PictureCanvas::minimumSizeHint() const
{
    return SMALLEST;
}

void PictureCanvas::paintEvent(QPaintEvent *)
{
    if (picture.isNull())
        return;
    const qreal ratio = devicePixelRatioF();
    const QSizeF room(width() - 2 * FRAME, height() - 2 * FRAME);
    const QSize pixels = ZoomedSize(picture.size(), (room * ratio).toSize(), qMax(1, int(MOST_ZOOM * ratio)));
    if (pixels.isEmpty())
        return;
    const QSizeF size = QSizeF(pixels) / ratio;
    // The picture begins at whole device pixels from the widget's corner, so that sharp edges remain sharp.
    const auto start = [ratio](qreal space) { return qRound(space / 2 * ratio) / ratio; };
    const QRectF rect(QPointF(start(width() - size.width()), start(height() - size.height())), size);
    QPainter painter(this);
    painter.fillRect(rect.adjusted(-FRAME, -FRAME, FRAME, FRAME), palette().color(QPalette::Mid));
    if (picture.hasAlphaChannel())
        FillChequered(painter, rect, palette().color(QPalette::Window).lightness() < 128);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, pixels.width() < picture.width());
    painter.drawImage(rect, picture);
}
