// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <Qt>

class QAbstractScrollArea;
class QKeyEvent;
class QMouseEvent;

/// Scrolls a view by dragging what it shows: with the middle button, or with the left one while Space is held. The view
/// passes its events on.
class PanGesture
{
public:
    explicit PanGesture(QAbstractScrollArea &scrollArea) : area(scrollArea) {}

    /// Each says whether the event was the gesture's.
    bool Press(const QMouseEvent &event);
    bool Move(const QMouseEvent &event);
    bool Release(const QMouseEvent &event);
    bool Key(const QKeyEvent &event, bool isDown);
    /// The view has lost the focus, and with it the keys.
    void LoseKeys();

private:
    void ShowCursor() const;

    QAbstractScrollArea &area;
    bool isSpaceHeld = false;
    Qt::MouseButton button = Qt::NoButton; // that drags
    QPoint last;
};
