// SPDX-License-Identifier: MIT
#include "ColorButton.h"

#include <QPainter>

void ColorButton::ShowColor(const QColor &color)
{
    shown = color;
    const QString text = color.name(QColor::HexRgb).toUpper();
    setToolTip(text);
    setAccessibleDescription(text);
    update();
}

/// Draws two frames, one inside the other: whatever the colour is, one of them differs from it.
void ColorButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(hasFocus() || underMouse() ? QPalette::Highlight : QPalette::Text));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const int frame = hasFocus() || isDown() ? 3 : 2;
    painter.fillRect(rect().adjusted(frame, frame, -frame, -frame), shown);
}
