#pragma once

#include "Profile.h"

#include <QObject>
#include <QRect>

#include <optional>

class QWidget;
class Settings;

/// Puts a window that is about to be shown where it is to be, counted with its frame.
///
/// How wide the frame is turns out only when the desktop has put it around the window: then the window is put right.
class FramePlace : public QObject
{
public:
    explicit FramePlace(QWidget &placedWindow);

    /// The whole window is to be no smaller.
    void SetSmallest(const QSize &size);
    /// The whole window is to be there; while it is maximised, once it no longer is.
    void PutAt(const QRect &position);
    /// The window has this size, but for its frame, and is where the desktop puts it, all of it on the screen.
    void FitOntoScreen(const QSize &size);
    /// Puts the window where it was when the settings were stored, on a screen that is there; the first time where the
    /// desktop puts it.
    void Restore(const Settings &settings);
    /// What the settings are to remember; nothing of a minimised window.
    [[nodiscard]] QList<ProfileEntry> State() const;
    /// The whole window, as it is now.
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
