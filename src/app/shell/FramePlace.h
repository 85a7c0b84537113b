// SPDX-License-Identifier: MIT
#pragma once

#include "Profile.h"

#include <QObject>
#include <QRect>

#include <optional>

class QWidget;
class Settings;

/// Places a window that is about to be shown. Positions include the window's frame.
///
/// The width of the frame is known only after the desktop has added it. The position of the window is corrected then.
class FramePlace : public QObject
{
public:
    explicit FramePlace(QWidget &placedWindow);

    /// Sets the minimum size of the whole window.
    void SetSmallest(const QSize &size);
    /// Sets the position of the whole window. If it is maximised, the position applies once it no longer is.
    void PutAt(const QRect &position);
    /// Sets the window's size without its frame. The desktop chooses the position, and all of the window is kept on the
    /// screen.
    void FitOntoScreen(const QSize &size);
    /// Restores the stored position of the window, moved to a screen that exists. If none is stored, the desktop
    /// chooses the position.
    void Restore(const Settings &settings);
    /// The entries to store in the settings; empty for a minimised window.
    [[nodiscard]] QList<ProfileEntry> State() const;
    /// The present position of the whole window.
    [[nodiscard]] QRect Position() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Correct();
    void ApplySmallest(const QMargins &frame);

    QWidget &window;
    QSize smallest;
    std::optional<QRect> wanted;
    bool isPlacing = false;
};
