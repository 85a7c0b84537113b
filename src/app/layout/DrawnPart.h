// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainter>

/// Draws a picture that is stretched over a rectangle, but only the part within `view`: the rectangle may be much
/// larger.
inline void DrawPart(QPainter &painter, const QImage &picture, const QRectF &rect, const QRect &view)
{
    const QRectF part = rect & QRectF(view);
    if (part.isEmpty())
        return;
    const qreal x = picture.width() / rect.width();
    const qreal y = picture.height() / rect.height();
    const QRectF source((part.x() - rect.x()) * x, (part.y() - rect.y()) * y, part.width() * x, part.height() * y);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(part, picture, source);
}
