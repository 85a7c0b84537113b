#pragma once

#include "LayoutFrames.h"

#include <QPoint>
#include <QSize>
#include <QString>

#include <array>

class CLayoutRes;
class CResoTable;

/// What a notch of the wheel does in the preview.
enum class WheelMove
{
    Nothing,
    Zoom,
    LineLeft,
    LineRight,
    LineUp,
    LineDown,
};

/// Decided by the keys that are held: Ctrl alone, Shift alone, or none. `delta` is that of the wheel, 120 a notch.
[[nodiscard]] WheelMove WheelMoveOf(int delta, Qt::KeyboardModifiers keys);

/// The size of the screen of a layout, in pixels at 100 %. (0, 0) without a layout, and for a resolution that isn't in
/// the table.
[[nodiscard]] QSize ScreenOf(const CLayoutRes *layout, const CResoTable &resolutions);

/// What of the preview a window shows.
struct PreviewPlace
{
    QPoint scroll; ///< scroll position, in pixels
    QSize client;  ///< the area that the window shows
};

/// The zoom of a preview and all numbers that follow from it: sizes, places and coordinates. Results beyond 32 bits are
/// the ends of the range.
///
/// Each operation that changes the zoom says whether it has: then the view needs its scroll size and a repaint.
class PreviewZoom
{
public:
    static constexpr int STEP = 10;                     // percent
    static constexpr int MARGIN = 10;                   // pixels around the screen
    static constexpr int NOTCH = 120;                   // of a wheel
    static constexpr int LEAST_OF_WHEEL = NOTCH / STEP; ///< changes the zoom by a percent
    static constexpr std::array PRESETS = {500, 200, 150, 100, 75, 50};

    [[nodiscard]] int Percent() const { return percent; }
    bool Set(int newPercent);
    /// Nothing happens when it isn't possible.
    bool ZoomIn();
    bool ZoomOut();
    [[nodiscard]] bool CanZoomIn() const;
    [[nodiscard]] bool CanZoomOut() const;
    /// Turns the wheel by `delta`, of which NOTCH is one step.
    bool Wheel(int delta);
    /// Makes the screen as large as a view of that outer size has room for, whatever zoom that is. 100 % for a screen
    /// without a size.
    bool Fit(QSize view);

    /// The place in PRESETS of the menu's entry that gets the mark; PRESETS.size() is "Customize".
    [[nodiscard]] size_t MarkedEntry() const;
    [[nodiscard]] QString CustomizeLabel() const;
    /// "75%"
    [[nodiscard]] static QString PercentText(int percent);
    /// "(10, -3)", for the status line
    [[nodiscard]] static QString PointText(QPoint layoutPoint);

    /// Takes the size of the screen in pixels at 100 %.
    void SetScreen(QSize size) { screen = size; }
    /// A layout coordinate in pixels of the view, cut toward zero.
    [[nodiscard]] qint32 Scaled(qint32 coordinate) const;
    [[nodiscard]] PreviewRect Scaled(const PreviewRect &rect) const;
    [[nodiscard]] QSize ScreenSize() const;
    [[nodiscard]] QSize ScrollSize() const;
    /// Where the screen begins, without the scroll position.
    [[nodiscard]] QPoint ScreenCorner(QSize client) const;
    /// The layout coordinates under the pointer, cut toward zero; outside of the screen too. All are 0 at a zoom of 0.
    [[nodiscard]] QPoint LayoutPoint(QPoint pointer, const PreviewPlace &place) const;
    /// The scroll position at which the pointer is over the same point of the layout as it was with the zoom `before`,
    /// as far as the view can be scrolled. `client` is the area now: scroll bars come and go.
    [[nodiscard]] QPoint ScrollKeeping(QPoint pointer, const PreviewZoom &before, const PreviewPlace &placeBefore,
                                       QSize client) const;

private:
    bool SetWithinLimits(qint64 newPercent);

    int percent = 100;
    QSize screen{0, 0};
};
