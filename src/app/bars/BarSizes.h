#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSize>

class CSizingControlBar;
class QMainWindow;

/// Keeps the bars of a main window at the sizes that the user gave them.
///
/// A bar that is shown, docked or floated gets the size for its new place. A bar that a small window squeezes gets its
/// size back when the window has room again. What the user drags a divider to is remembered.
class BarSizes : public QObject
{
public:
    BarSizes(QMainWindow &mainWindow, const QList<CSizingControlBar *> &allBars);

    /// Gives each bar that is in sight its size, as far as the window has room.
    void Apply();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ApplySoon();
    [[nodiscard]] QList<CSizingControlBar *> Docked() const;

    QMainWindow &window;
    QList<CSizingControlBar *> bars;
    QList<QSize> atPress; // the bars' sizes when the user took hold of a divider; empty: there is none
    bool isDue = false;
};
