// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <Qt>

class QAbstractScrollArea;
class QKeyEvent;
class QMouseEvent;

/// Scrolls a view when the user drags its contents with the middle button, or with the left one while Space is held.
/// The view must pass its events to this object.
class PanGesture
{
public:
    explicit PanGesture(QAbstractScrollArea &scrollArea) : area(scrollArea) {}

    /// Each returns whether the event belonged to the gesture.
    bool Press(const QMouseEvent &event);
    bool Move(const QMouseEvent &event);
    bool Release(const QMouseEvent &event);
    bool Key(const QKeyEvent &event, bool isDown);
    /// Called when the view loses the focus: it receives no keys then, so Space no longer counts as held.
    void LoseKeys();

private:
    void ShowCursor() const;

    QAbstractScrollArea &area;
    bool isSpaceHeld = false;
    Qt::MouseButton button = Qt::NoButton; // the button that drags
    QPoint last;
};
