// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>
#include <QImage>
#include <QPixmap>

class QPainter;

/// The two pictures of the preview: the wallpaper of the screen, and the one of a component that has no colour. Both
/// are stretched to the rectangle that they are drawn in. Pictures of sizes that were needed lately are kept.
class PreviewPictures
{
public:
    PreviewPictures();

    /// Of `rect` only what is within `view` needs to be drawn. It is what makes large rectangles cheap; give the same
    /// for a repaint of a part, so that the parts fit together.
    void DrawWallpaper(QPainter &painter, const QRectF &rect, const QRect &view);
    void DrawPlaceholder(QPainter &painter, const QRectF &rect, const QRect &view);

private:
    QImage wallpaper;
    QImage placeholder;
    QPixmap stretchedWallpaper;
    QCache<int, QPixmap> placeholders; ///< by height in device pixels; cost in bytes
};
