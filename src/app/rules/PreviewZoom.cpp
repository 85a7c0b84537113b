// SPDX-License-Identifier: MIT
#include "PreviewZoom.h"

#include "CLayoutRes.h"
#include "CResoTable.h"
#include "Nearest32.h"
#include "ZoomInput.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

/// On one axis: the position at which the screen begins.
qint32 CornerOf(qint32 screenSize, qint32 scrollSize, int client)
{
    const qint64 room = std::max(scrollSize, client);
    return std::max(Nearest32((room - screenSize) / 2), PreviewZoom::MARGIN);
}

/// On one axis: the layout coordinate at that distance in pixels from the screen's corner.
qint32 Unscaled(qint64 pixels, int percent)
{
    return percent == 0 ? 0 : Nearest32(pixels * 100 / percent);
}

/// On one axis: the scroll position that moves a point to `pointer`, or the nearest possible one.
int ScrollTo(double point, int pointer, qint32 scrollSize, int client)
{
    const double most = std::max(0.0, double(scrollSize) - client);
    return int(std::clamp(std::round(point - pointer), 0.0, most));
}

} // namespace

WheelMove WheelMoveOf(int delta, Qt::KeyboardModifiers keys)
{
    keys &= ~Qt::KeyboardModifiers(Qt::KeypadModifier); // not a modifier that is held
    if (delta == 0)
        return WheelMove::Nothing;
    if (keys == Qt::ControlModifier)
        return WheelMove::Zoom;
    if (keys == Qt::ShiftModifier)
        return delta > 0 ? WheelMove::LineLeft : WheelMove::LineRight;
    if (keys == Qt::NoModifier)
        return delta > 0 ? WheelMove::LineUp : WheelMove::LineDown;
    return WheelMove::Nothing;
}

QSize ScreenOf(const CLayoutRes *layout, const CResoTable &resolutions)
{
    if (!layout || !layout->File())
        return {0, 0};
    const CResoEntry &entry = resolutions.At(layout->File()->resolution);
    return {entry.width, entry.height};
}

bool PreviewZoom::Set(int newPercent)
{
    return std::exchange(percent, newPercent) != newPercent;
}

bool PreviewZoom::SetWithinLimits(qint64 newPercent)
{
    return Set(int(std::clamp<qint64>(newPercent, ZoomInput::LOWEST, ZoomInput::HIGHEST)));
}

bool PreviewZoom::CanZoomIn() const
{
    return percent < ZoomInput::HIGHEST;
}

bool PreviewZoom::CanZoomOut() const
{
    return percent > ZoomInput::LOWEST;
}

bool PreviewZoom::ZoomIn()
{
    return CanZoomIn() && SetWithinLimits(qint64(percent) + STEP);
}

bool PreviewZoom::ZoomOut()
{
    return CanZoomOut() && SetWithinLimits(qint64(percent) - STEP);
}

bool PreviewZoom::Wheel(int delta)
{
    return SetWithinLimits(percent + qint64(delta) * STEP / NOTCH);
}

bool PreviewZoom::Fit(QSize view)
{
    if (screen.isEmpty())
        return Set(100);
    const auto percentOf = [](int outer, int size) { return qint64(std::max(outer - 2 * MARGIN, 0)) * 100 / size; };
    return Set(Nearest32(std::min(percentOf(view.width(), screen.width()), percentOf(view.height(), screen.height()))));
}

size_t PreviewZoom::MarkedEntry() const
{
    return size_t(std::find(PRESETS.begin(), PRESETS.end(), percent) - PRESETS.begin());
}

QString PreviewZoom::CustomizeLabel() const
{
    if (MarkedEntry() < PRESETS.size())
        return QStringLiteral("&Customize...");
    return QStringLiteral("Customize(%1)...").arg(PercentText(percent));
}

QString PreviewZoom::PercentText(int percent)
{
    return QString::number(percent) + u'%';
}

QString PreviewZoom::PointText(QPoint layoutPoint)
{
    return QStringLiteral("(%1, %2)").arg(layoutPoint.x()).arg(layoutPoint.y());
}

qint32 PreviewZoom::Scaled(qint32 coordinate) const
{
    return Nearest32(qint64(coordinate) * percent / 100);
}

PreviewRect PreviewZoom::Scaled(const PreviewRect &rect) const
{
    return {Scaled(rect.left), Scaled(rect.top), Scaled(rect.right), Scaled(rect.bottom)};
}

QSize PreviewZoom::ScreenSize() const
{
    return {Scaled(screen.width()), Scaled(screen.height())};
}

QSize PreviewZoom::ScrollSize() const
{
    const QSize size = ScreenSize();
    return {Nearest32(qint64(size.width()) + 2 * MARGIN), Nearest32(qint64(size.height()) + 2 * MARGIN)};
}

QPoint PreviewZoom::ScreenCorner(QSize client) const
{
    const QSize size = ScreenSize();
    const QSize scroll = ScrollSize();
    return {CornerOf(size.width(), scroll.width(), client.width()),
            CornerOf(size.height(), scroll.height(), client.height())};
}

QPoint PreviewZoom::LayoutPoint(QPoint pointer, const PreviewPlace &place) const
{
    const QPoint corner = ScreenCorner(place.client);
    return {Unscaled(qint64(pointer.x()) + place.scroll.x() - corner.x(), percent),
            Unscaled(qint64(pointer.y()) + place.scroll.y() - corner.y(), percent)};
}

QPoint PreviewZoom::ScrollKeeping(QPoint pointer, const PreviewZoom &before, const PreviewPlace &placeBefore,
                                  QSize client) const
{
    // Doesn't round to whole layout coordinates: otherwise many small steps would shift the picture.
    const QPointF offset = QPointF(pointer) + placeBefore.scroll - before.ScreenCorner(placeBefore.client);
    const double factor = before.percent == 0 ? 0 : double(percent) / before.percent;
    const QPointF point = offset * factor + ScreenCorner(client);
    const QSize scroll = ScrollSize();
    return {ScrollTo(point.x(), pointer.x(), scroll.width(), client.width()),
            ScrollTo(point.y(), pointer.y(), scroll.height(), client.height())};
}
