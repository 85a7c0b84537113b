// SPDX-License-Identifier: MIT
#include "PreviewArt.h"

#include "DrawnPart.h"
#include "Environment.h"
#include "Paths.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int TEXT_EDGE = 2;    // pixels of the device, between a text and the sides of its component
constexpr int BESIDE_IMAGE = 2; // pixels of the device, between an image and the text beside it
constexpr int USUAL_FONT = 16;  // pixels of the device: the font size if no property gives one
constexpr int SMALLEST_USUAL_FONT = 9;
constexpr qreal SMALLEST_FONT = 4;      // pixels of the view: a smaller font can't be read
constexpr qreal SMALLEST_TILE = 4;      // pixels of the view
constexpr qreal LARGEST_FONT = 2000;    // pixels of the view
constexpr qreal LONGEST_SIDE = 1 << 20; // pixels of the view, of a rectangle in which a text is laid out

QSizeF Scaled(const QSize &size, qreal scale)
{
    return {size.width() * scale, size.height() * scale};
}

QRectF InMiddle(const QSizeF &size, const QRectF &rect)
{
    QRectF placed({}, size);
    placed.moveCenter(rect.center());
    return placed;
}

/// The size of an image that is drawn beside a text: no taller than the component.
QSizeF BesideText(const PreviewImages::Image &image, const QRectF &rect, qreal scale)
{
    const QSizeF natural = Scaled(image.size, scale);
    return natural.height() > rect.height() ? natural.scaled(rect.size(), Qt::KeepAspectRatio) : natural;
}

QColor ColorFrom(quint32 color)
{
    return {int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF)};
}

} // namespace

PreviewArt::PreviewArt(CResModel &projectModel, std::function<void()> loaded)
    : model(projectModel), images(std::move(loaded)), paths(std::make_unique<HostPaths>())
{
}

void PreviewArt::Reset(size_t count, qint32 layoutResolution)
{
    contents.clear();
    contents.resize(count);
    resolution = layoutResolution;
}

void PreviewArt::RefreshFiles()
{
    paths = std::make_unique<HostPaths>();
    hostPath.clear();
    images.Refresh();
}

const PreviewContent &PreviewArt::Of(size_t place, const CZulClass &component)
{
    std::unique_ptr<PreviewContent> &content = contents.at(place);
    if (!content)
        content = std::make_unique<PreviewContent>(PreviewContents(model, resolution).Of(component));
    return *content;
}

const PreviewImages::Image &PreviewArt::ImageOf(const NarrowText &path)
{
    QByteArray &known = hostPath[path];
    if (known.isEmpty())
        known = paths->Resolve(ResolvePath(model.env.NarrowToWide(path), DirectoryOf(model.PathName())));
    return images.Of(known);
}

void PreviewArt::Draw(QPainter &painter, const PreviewContent &content, const QRectF &rect, const QRect &view,
                      qreal scale)
{
    painter.save();
    painter.setClipRect(rect & QRectF(view));
    QRectF forText = rect;
    for (const NarrowText &path : content.images) {
        const PreviewImages::Image &image = ImageOf(path);
        // A narrow image, as in a button, is drawn beside the text. Any other image is drawn under it.
        const QSizeF beside = BesideText(image, rect, scale);
        if (content.text && content.images.size() == 1 && beside.width() < rect.width() / 2) {
            QRectF forImage = rect;
            forImage.setWidth(beside.width() + 2 * BESIDE_IMAGE * scale);
            forText.setLeft(forImage.right());
            DrawPart(painter, image.picture, InMiddle(beside, forImage), view);
        } else {
            DrawImage(painter, image, content.fit, rect, view, scale);
        }
    }
    if (content.text)
        DrawText(painter, *content.text, forText, scale);
    painter.restore();
}

void PreviewArt::DrawImage(QPainter &painter, const PreviewImages::Image &image, ImageFit fit, const QRectF &rect,
                           const QRect &view, qreal scale) const
{
    if (image.picture.isNull() || rect.isEmpty())
        return;
    const QSizeF natural = Scaled(image.size, scale);
    switch (fit) {
    case ImageFit::Stretch:
        return DrawPart(painter, image.picture, rect, view);
    case ImageFit::Contain:
        return DrawPart(painter, image.picture, InMiddle(natural.scaled(rect.size(), Qt::KeepAspectRatio), rect), view);
    case ImageFit::Natural:
        return DrawPart(painter, image.picture, InMiddle(natural, rect), view);
    case ImageFit::Tile:
        break;
    }
    // Draws only the visible tiles. Very small tiles would be too many and could not be distinguished, so the image is
    // stretched instead.
    const QRectF shown = rect & QRectF(view);
    if (shown.isEmpty() || natural.width() < SMALLEST_TILE || natural.height() < SMALLEST_TILE)
        return DrawPart(painter, image.picture, rect, view);
    const auto first = [](qreal from, qreal origin, qreal step) {
        return origin + std::floor((from - origin) / step) * step;
    };
    for (qreal y = first(shown.top(), rect.top(), natural.height()); y < shown.bottom(); y += natural.height()) {
        for (qreal x = first(shown.left(), rect.left(), natural.width()); x < shown.right(); x += natural.width())
            DrawPart(painter, image.picture, QRectF(QPointF(x, y), natural), view);
    }
}

/// Draws the text in one line, shortened with "…" if it is too wide, unless the text wraps. If no property gives a font
/// size, the font is made smaller until the text fits, but not smaller than SMALLEST_USUAL_FONT.
void PreviewArt::DrawText(QPainter &painter, const ShownText &text, const QRectF &rect, qreal scale) const
{
    const QRectF room = rect.adjusted(TEXT_EDGE * scale, 0, -TEXT_EDGE * scale, 0);
    const qreal size = (text.pixelSize ? text.pixelSize : USUAL_FONT) * scale;
    const bool isReadable = size >= SMALLEST_FONT && size <= LARGEST_FONT;
    if (room.isEmpty() || !isReadable || std::max(room.width(), room.height()) > LONGEST_SIDE)
        return;
    QFont font = painter.font();
    font.setPixelSize(qRound(size));
    font.setBold(text.isBold);
    font.setItalic(text.isItalic);
    if (const qreal width = QFontMetricsF(font).horizontalAdvance(text.text); !text.pixelSize && width > room.width())
        font.setPixelSize(int(std::max(size * room.width() / width, SMALLEST_USUAL_FONT * scale)));
    painter.setFont(font);
    painter.setPen(text.color ? ColorFrom(*text.color) : QColor(Qt::black));
    painter.setLayoutDirection(text.direction);
    const QString shown =
        text.wraps ? text.text : painter.fontMetrics().elidedText(text.text, Qt::ElideRight, int(room.width()));
    const int flags = int(text.alignment) | Qt::AlignAbsolute | (text.wraps ? Qt::TextWordWrap : Qt::TextSingleLine);
    painter.drawText(room, flags, shown);
}
