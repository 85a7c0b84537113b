// SPDX-License-Identifier: MIT
#include "PanGesture.h"

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QScrollBar>

bool PanGesture::Press(const QMouseEvent &event)
{
    if (button != Qt::NoButton)
        return true;
    if (event.button() != Qt::MiddleButton && !(event.button() == Qt::LeftButton && isSpaceHeld))
        return false;
    button = event.button();
    last = event.pos();
    ShowCursor();
    return true;
}

bool PanGesture::Move(const QMouseEvent &event)
{
    if (button == Qt::NoButton)
        return false;
    const QPoint step = event.pos() - last;
    last = event.pos();
    area.horizontalScrollBar()->setValue(area.horizontalScrollBar()->value() - step.x());
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->value() - step.y());
    return true;
}

bool PanGesture::Release(const QMouseEvent &event)
{
    if (button == Qt::NoButton)
        return false;
    if (event.button() == button)
        button = Qt::NoButton;
    ShowCursor();
    return true;
}

bool PanGesture::Key(const QKeyEvent &event, bool isDown)
{
    // The release of Space is handled even if another key, such as Shift, is pressed meanwhile.
    if (event.key() != Qt::Key_Space || (isDown && event.modifiers() != Qt::NoModifier))
        return false;
    if (!event.isAutoRepeat())
        isSpaceHeld = isDown;
    ShowCursor();
    return true;
}

void PanGesture::LoseKeys()
{
    isSpaceHeld = false;
    ShowCursor();
}

void PanGesture::ShowCursor() const
{
    QWidget &shown = *area.viewport();
    if (button != Qt::NoButton)
        shown.setCursor(Qt::ClosedHandCursor);
    else if (isSpaceHeld)
        shown.setCursor(Qt::OpenHandCursor);
    else
        shown.unsetCursor();
}
