// SPDX-License-Identifier: MIT
#pragma once

#include "LayoutFrames.h"

#include <QPoint>
#include <QSize>
#include <QString>

#include <array>

class CLayoutRes;
class CResoTable;

/// What the wheel does in the preview.
enum class WheelMove
{
    Nothing,
    Zoom,
    LineLeft,
    LineRight,
    LineUp,
    LineDown,
};

/// The move depends on the keys that are held: Ctrl alone, Shift alone, or none. `delta` is that of the wheel, 120 for
/// a notch.
[[nodiscard]] WheelMove WheelMoveOf(int delta, Qt::KeyboardModifiers keys);

/// The size of a layout's screen, in pixels at 100 %. (0, 0) if there is no layout, or if its resolution isn't in the
/// table.
[[nodiscard]] QSize ScreenOf(const CLayoutRes *layout, const CResoTable &resolutions);

/// The part of the preview that a window shows.
struct PreviewPlace
{
    QPoint scroll; ///< scroll position, in pixels
    QSize client;  ///< the area that the window shows
};

/// The zoom of a preview and all numbers that follow from it: sizes, positions and coordinates. Results that exceed 32
/// bits are clamped to the range.
///
/// Each operation that can change the zoom returns whether it has changed it. If so, the view must update its scroll
/// size and repaint.
class PreviewZoom
{
public:
    static constexpr int STEP = 10;                     // percent
    static constexpr int MARGIN = 10;                   // pixels around the screen
    static constexpr int NOTCH = 120;                   // the `delta` of one notch of a wheel
    static constexpr int LEAST_OF_WHEEL = NOTCH / STEP; ///< the least `delta` that changes the zoom, by one percent
    static constexpr std::array PRESETS = {500, 200, 150, 100, 75, 50};

    [[nodiscard]] int Percent() const { return percent; }
    bool Set(int newPercent);
    /// These two return false if no further step is possible.
    bool ZoomIn();
    bool ZoomOut();
    [[nodiscard]] bool CanZoomIn() const;
    [[nodiscard]] bool CanZoomOut() const;
    /// Changes the zoom for a wheel that was turned by `delta`; NOTCH is one step.
    bool Wheel(int delta);
    /// Sets the zoom at which the screen fills a view of that outer size. Sets 100 % if the screen has no size.
    bool Fit(QSize view);

    /// The index in PRESETS of the menu entry that is checked. PRESETS.size() means the entry "Customize".
    [[nodiscard]] size_t MarkedEntry() const;
    [[nodiscard]] QString CustomizeLabel() const;
    /// "75%"
    [[nodiscard]] static QString PercentText(int percent);
    /// "(10, -3)", for the status line
    [[nodiscard]] static QString PointText(QPoint layoutPoint);

    /// Sets the size of the screen, in pixels at 100 %.
    void SetScreen(QSize size) { screen = size; }
    /// A layout coordinate in pixels of the view, rounded toward zero.
    [[nodiscard]] qint32 Scaled(qint32 coordinate) const;
    [[nodiscard]] PreviewRect Scaled(const PreviewRect &rect) const;
    [[nodiscard]] QSize ScreenSize() const;
    [[nodiscard]] QSize ScrollSize() const;
    /// The top left corner of the screen in the view, without the scroll position.
    [[nodiscard]] QPoint ScreenCorner(QSize client) const;
    /// The layout coordinates under the pointer, rounded toward zero, also outside of the screen. All are 0 at a zoom
    /// of 0.
    [[nodiscard]] QPoint LayoutPoint(QPoint pointer, const PreviewPlace &place) const;
    /// The scroll position at which the pointer is over the same point of the layout as it was with the zoom `before`,
    /// as far as the view can be scrolled. `client` is the present client area, which changes when scroll bars appear
    /// or disappear.
    [[nodiscard]] QPoint ScrollKeeping(QPoint pointer, const PreviewZoom &before, const PreviewPlace &placeBefore,
                                       QSize client) const;

private:
    bool SetWithinLimits(qint64 newPercent);

    int percent = 100;
    QSize screen{0, 0};
};
