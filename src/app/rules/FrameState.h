#pragma once

#include "Settings.h"

#include <QList>
#include <QRect>
#include <QString>

#include <optional>

/// What the settings remember of the main window. Positions are those of the whole window with its frame, in pixels
/// that don't depend on the screen's scale.
struct FrameState
{
    bool maximized = false;
    std::optional<QRect> position; ///< nothing when the key has fewer than four numbers

    [[nodiscard]] static FrameState Read(const Settings &settings);
};

/// Whether the Toolbox bar is to be shown while a layout is: one answer for all project windows, read at first use.
class ToolboxState
{
public:
    [[nodiscard]] bool IsShown(const Settings &settings);
    void Show(bool show) { shown = show; }
    /// What the settings are to remember; nothing if it was never read.
    [[nodiscard]] QList<ProfileEntry> State() const;

private:
    std::optional<bool> shown;
};

inline constexpr QSize SMALLEST_FRAME(500, 450);

/// "left,top,right,bottom".
[[nodiscard]] QString PositionText(const QRect &position);
[[nodiscard]] std::optional<QRect> ParsePosition(const QString &text);

/// "width,height"; the fallback when the text has no two numbers above 0.
[[nodiscard]] QString SizeText(const QSize &size);
[[nodiscard]] QSize ParseSize(const QString &text, const QSize &fallback);

/// The smallest size of the window on a screen of that size.
[[nodiscard]] QSize SmallestFrame(const QSize &screen);

/// A stored position, moved and shrunk so that the window can be reached: no larger than the screens together, its
/// title below the top of the screen, and when the title is off all screens, in the middle of the first one.
[[nodiscard]] QRect BroughtBack(const QRect &position, const QList<QRect> &screens);

/// A position, moved and shrunk so that all of it is on the screen.
[[nodiscard]] QRect FittedInto(const QRect &position, const QRect &screen);
