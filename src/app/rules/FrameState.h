// SPDX-License-Identifier: MIT
#pragma once

#include "Settings.h"

#include <QList>
#include <QRect>
#include <QString>

#include <optional>

/// The state of the main window that the settings store. Positions are those of the whole window with its frame, in
/// device-independent pixels.
struct FrameState
{
    bool maximized = false;
    std::optional<QRect> position; ///< nothing if the key has fewer than four numbers

    [[nodiscard]] static FrameState Read(const Settings &settings);
};

/// Whether the Toolbox bar is shown while a layout is shown. All project windows share it. It is read at first use.
class ToolboxState
{
public:
    [[nodiscard]] bool IsShown(const Settings &settings);
    void Show(bool show) { shown = show; }
    /// The entries to store in the settings; empty if it was never read.
    [[nodiscard]] QList<ProfileEntry> State() const;

private:
    std::optional<bool> shown;
};

inline constexpr QSize SMALLEST_FRAME(500, 450);

/// "left,top,right,bottom".
[[nodiscard]] QString PositionText(const QRect &position);
[[nodiscard]] std::optional<QRect> ParsePosition(const QString &text);

/// "width,height"; the fallback if the text doesn't have two numbers above 0.
[[nodiscard]] QString SizeText(const QSize &size);
[[nodiscard]] QSize ParseSize(const QString &text, const QSize &fallback);

/// The smallest size of the window on a screen of that size.
[[nodiscard]] QSize SmallestFrame(const QSize &screen);

/// A stored position, moved and shrunk so that the user can reach the window. It is no larger than all screens
/// together, and its title is below the top of the screen. If the title is outside of all screens, the window is
/// centred on the first one.
[[nodiscard]] QRect BroughtBack(const QRect &position, const QList<QRect> &screens);

/// A position, moved and shrunk so that all of it is on the screen.
[[nodiscard]] QRect FittedInto(const QRect &position, const QRect &screen);
