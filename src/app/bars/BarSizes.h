// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSize>

class CSizingControlBar;
class QMainWindow;

/// Keeps the bars of a main window at the sizes that the user gave them.
///
/// A bar that is shown, docked or floated gets the size for its new place. A bar that is squeezed by a small window
/// gets its size back when the window has room again. When the user drags a divider, the new sizes are kept.
class BarSizes : public QObject
{
public:
    BarSizes(QMainWindow &mainWindow, const QList<CSizingControlBar *> &allBars);

    /// Gives each visible bar its size, as far as the window has room.
    void Apply();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ApplySoon();
    [[nodiscard]] QList<CSizingControlBar *> Docked() const;

    QMainWindow &window;
    QList<CSizingControlBar *> bars;
    QList<QSize> atPress; // the bars' sizes when the user pressed the mouse on a divider; otherwise empty
    bool isDue = false;
};
