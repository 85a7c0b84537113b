// SPDX-License-Identifier: MIT
#include "PreviewPainter.h"

#include "CoveredTiles.h"
#include "PreviewArt.h"
#include "PreviewZoom.h"
#include "ZulType.h"

#include <QPainter>

#include <algorithm>

namespace
{

constexpr int OUTLINE = 2;
constexpr int FOCUS_DISTANCE = 3;
constexpr int LABEL_EDGE = 2; // between a label and the sides of its component, including the frame
constexpr QColor OUTLINE_COLOR(0xFF, 0, 0);
constexpr QColor UNSET_BORDER(0x8C, 0x96, 0xA3);
constexpr QColor PALE(0xF0, 0xF3, 0xF7); // about the colour of the placeholder

QColor ColorFrom(quint32 color)
{
    return {int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF)};
}

bool IsColor(quint32 color)
{
    return color != FRAME_NO_PROPERTY && color != FRAME_NO_VALUE;
}

/// Black or white, whichever is readable on that colour.
QColor InkOn(const QColor &fill)
{
    constexpr int MIDDLE = 140; // of 255
    return qGray(fill.rgb()) < MIDDLE ? Qt::white : Qt::black;
}

/// The four sides of a rectangle, each `width` pixels wide, from its edge inward.
QRegion Sides(const QRect &rect, int width)
{
    return QRegion(rect) - QRegion(rect.adjusted(width, width, -width, -width));
}

void FillSides(QPainter &painter, const QRect &rect, int width, const QColor &leftAndTop, const QColor &others)
{
    const int high = std::max(rect.height() - 2 * width, 0);
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), width), leftAndTop);
    painter.fillRect(QRect(rect.left(), rect.bottom() + 1 - width, rect.width(), width), others);
    painter.fillRect(QRect(rect.left(), rect.top() + width, width, high), leftAndTop);
    painter.fillRect(QRect(rect.right() + 1 - width, rect.top() + width, width, high), others);
}

bool Touches(const QRegion &region, const QRect &rect)
{
    return region.boundingRect().intersects(rect) && (region.rectCount() == 1 || region.intersects(rect));
}

} // namespace

/// The place of a rectangle of the layout in the view. Its coordinates may not fit into 32 bits.
struct PreviewPainter::Place
{
    Place(const PreviewRect &scaled, QPoint corner)
        : left(qint64(scaled.left) + corner.x()), top(qint64(scaled.top) + corner.y()),
          right(qint64(scaled.right) + corner.x()), bottom(qint64(scaled.bottom) + corner.y())
    {
    }
    Place(const PreviewScene &scene, const PreviewEntry &entry) : Place(scene.zoom.Scaled(entry.rect), scene.corner) {}

    [[nodiscard]] bool IsEmpty() const { return left >= right || top >= bottom; }
    [[nodiscard]] QRectF Whole() const
    {
        return {QPointF(double(left), double(top)), QPointF(double(right), double(bottom))};
    }
    /// The same place, limited to the view. An edge outside of the view is moved as close to it as possible without
    /// becoming visible; anything that is drawn along the edge stays invisible too.
    [[nodiscard]] QRect In(const QRect &view) const
    {
        constexpr int BEYOND = 4 * OUTLINE;
        const auto within = [](qint64 number, int from, int to) {
            return int(std::clamp<qint64>(number, qint64(from) - BEYOND, qint64(to) + BEYOND));
        };
        const int x = within(std::min(left, right), view.left(), view.right() + 1);
        const int y = within(std::min(top, bottom), view.top(), view.bottom() + 1);
        const int endX = within(std::max(left, right), view.left(), view.right() + 1);
        const int endY = within(std::max(top, bottom), view.top(), view.bottom() + 1);
        return {x, y, endX - x, endY - y};
    }

    qint64 left, top, right, bottom;
};

QRect PreviewPainter::ExtentOf(const PreviewScene &scene, const PreviewEntry &entry) const
{
    const Place place(scene, entry);
    const QRect rect = place.In(scene.view);
    if (!place.IsEmpty())
        return rect;
    const int half = labels.Ellipsis().width / 2 + 1;
    return rect.adjusted(-half, -labels.Height(), half, labels.Height());
}

QRegion PreviewPainter::OutlineOf(const PreviewScene &scene, const PreviewEntry &entry)
{
    const QRect rect = Place(scene, entry).In(scene.view);
    return Sides(rect.adjusted(-OUTLINE / 2, -OUTLINE / 2, OUTLINE / 2, OUTLINE / 2), OUTLINE);
}

void PreviewPainter::PaintLabel(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place,
                                QColor fill)
{
    // An empty rectangle gets only the ellipsis, which shows where the rectangle is.
    const auto *const label = place.IsEmpty() ? &labels.Ellipsis()
                                              : labels.Fitting(entry, *scene.entries[entry].component,
                                                               place.right - place.left - 2 * LABEL_EDGE);
    const qint64 room = place.IsEmpty() ? 0 : place.bottom - place.top;
    if (!label || (!place.IsEmpty() && room < labels.Height() / 2)) // the label could not be read
        return;
    const qint64 x = place.left + (place.right - place.left - label->width) / 2;
    const qint64 y = place.top + std::min<qint64>(LABEL_EDGE, (room - labels.Height()) / 2);
    if (x + label->width < scene.view.left() || x > scene.view.right())
        return;
    const bool isCut = !place.IsEmpty() && room < labels.Height();
    if (isCut)
        painter.setClipRect(place.In(scene.view));
    painter.setPen(InkOn(fill));
    painter.drawStaticText(QPointF(double(x), double(y)), label->shown);
    if (isCut)
        painter.setClipping(false);
}

void PreviewPainter::PaintEntry(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place)
{
    if (art && PaintArt(painter, scene, entry, place))
        return;
    const PreviewEntry &painted = scene.entries[entry];
    QColor fill = PALE;
    if (!place.IsEmpty()) {
        const QRect rect = place.In(scene.view);
        if (IsColor(painted.background)) {
            fill = ColorFrom(painted.background);
            painter.fillRect(rect, fill);
        } else {
            pictures.DrawPlaceholder(painter, place.Whole(), scene.view);
        }
        const QColor border = IsColor(painted.border) ? ColorFrom(painted.border) : UNSET_BORDER;
        FillSides(painter, rect, 1, border, border);
    }
    PaintLabel(painter, scene, entry, place, fill);
}

bool PreviewPainter::PaintArt(QPainter &painter, const PreviewScene &scene, size_t entry, const Place &place)
{
    const PreviewEntry &painted = scene.entries[entry];
    const PreviewContent &content = art->Of(entry, *painted.component);
    const bool isContainer = !painted.component->subComponents.empty();
    if (place.IsEmpty() || (content.IsEmpty() && !isContainer))
        return false;
    const QRect rect = place.In(scene.view);
    if (IsColor(painted.background)) {
        QColor fill = ColorFrom(painted.background);
        fill.setAlpha(content.backgroundAlpha);
        painter.fillRect(rect, fill);
    } else if (content.text && !content.text->color) {
        pictures.DrawPlaceholder(painter, place.Whole(), scene.view); // so that a black text can be read
    }
    art->Draw(painter, content, place.Whole(), scene.view, scene.zoom.Percent() / 100.0);
    if (IsColor(painted.border) && painted.sources.border) {
        const QColor border = ColorFrom(painted.border);
        FillSides(painter, rect, 1, border, border);
    }
    return true;
}

/// Draws a black and white frame around the screen, and around that the line that marks the active view.
void PreviewPainter::PaintFrame(QPainter &painter, const QRect &screen, bool isActive) const
{
    FillSides(painter, screen.adjusted(-1, -1, 1, 1), 1, Qt::black, Qt::white);
    const QRect around = screen.adjusted(-FOCUS_DISTANCE, -FOCUS_DISTANCE, FOCUS_DISTANCE, FOCUS_DISTANCE);
    if (isActive)
        FillSides(painter, around, 1, look.focus, look.focus);
}

/// Images and their backgrounds may be transparent.
bool PreviewPainter::IsOpaque(const PreviewEntry &entry, size_t place) const
{
    if (!art)
        return true;
    const PreviewContent &content = art->Of(place, *entry.component);
    const bool isPlain = content.IsEmpty() && entry.component->subComponents.empty();
    return isPlain || (IsColor(entry.background) && content.backgroundAlpha == 255);
}

/// Leaves out covered components: most components of a large layout are below others, and labels take the most time.
std::vector<size_t> PreviewPainter::InSight(const PreviewScene &scene, const QRegion &region) const
{
    std::vector<size_t> inSight;
    CoveredTiles covered(scene.view);
    for (size_t i = scene.entries.size(); i-- > 0;) {
        const PreviewEntry &entry = scene.entries[i];
        if (!entry.component)
            continue;
        const QRect extent = ExtentOf(scene, entry);
        if (!Touches(region, extent) || covered.HasCovered(extent))
            continue;
        inSight.push_back(i);
        if (!Place(scene, entry).IsEmpty() && IsOpaque(entry, i))
            covered.Cover(extent);
    }
    std::reverse(inSight.begin(), inSight.end());
    return inSight;
}

void PreviewPainter::Paint(QPainter &painter, const PreviewScene &scene, const QRegion &region)
{
    for (const QRect &part : region)
        painter.fillRect(part, look.surround);
    const QSize size = scene.zoom.ScreenSize();
    const Place screenPlace({0, 0, size.width(), size.height()}, scene.corner);
    const QRect screen = screenPlace.In(scene.view);
    if (!size.isEmpty() && Touches(region, screen))
        pictures.DrawWallpaper(painter, screenPlace.Whole(), scene.view);
    painter.setFont(labels.Font());
    for (const size_t entry : InSight(scene, region))
        PaintEntry(painter, scene, entry, Place(scene, scene.entries[entry]));
    if (const PreviewEntry *selected = EntryOf(scene.entries, scene.selected)) {
        for (const QRect &side : OutlineOf(scene, *selected))
            painter.fillRect(side, OUTLINE_COLOR);
    }
    if (!size.isEmpty())
        PaintFrame(painter, screen, scene.isActive);
}
