// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>
#include <QImage>
#include <QPixmap>

class QPainter;

/// The two pictures of the preview: the wallpaper of the screen, and the placeholder for a component that has no
/// colour. Both are stretched to the rectangle in which they are drawn. Pictures of recently used sizes are kept.
class PreviewPictures
{
public:
    PreviewPictures();

    /// Only the part of `rect` within `view` has to be drawn, which makes large rectangles cheap. For the repaint of a
    /// part, pass the same `view`, so that the parts fit together.
    void DrawWallpaper(QPainter &painter, const QRectF &rect, const QRect &view);
    void DrawPlaceholder(QPainter &painter, const QRectF &rect, const QRect &view);

private:
    QImage wallpaper;
    QImage placeholder;
    QPixmap stretchedWallpaper;
    QCache<int, QPixmap> placeholders; ///< by height in device pixels; cost in bytes
};
