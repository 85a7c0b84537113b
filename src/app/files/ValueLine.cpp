// SPDX-License-Identifier: MIT
#include "ValueLine.h"

#include <QEvent>
#include <QPainter>

namespace
{

constexpr int EDGE = 2; // margin left and right of the text in a line without a frame
constexpr int LEAST_LETTERS = 8;

} // namespace

ValueLine::ValueLine(QWidget *parent) : QLineEdit(parent)
{
    setReadOnly(true);
    setFrame(false);
    setAutoFillBackground(false);
    QPalette plain = palette();
    plain.setColor(QPalette::Base, Qt::transparent);
    setPalette(plain);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    Align();
}

/// Paths and numbers are written from left to right, also in a right-to-left window.
void ValueLine::Align()
{
    const bool isMirrored = parentWidget()->layoutDirection() == Qt::RightToLeft;
    setLayoutDirection(Qt::LeftToRight);
    setAlignment((isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

void ValueLine::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        Align();
}

void ValueLine::Show(const QString &shownText)
{
    if (shownText == text())
        return; // keeps the selection
    setText(shownText);
    setCursorPosition(0);
}

QSize ValueLine::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() + 2};
}

QSize ValueLine::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * LEAST_LETTERS, fontMetrics().height() + 2};
}

void ValueLine::paintEvent(QPaintEvent *event)
{
    const QRect place = rect().adjusted(EDGE, 0, -EDGE, 0);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width());
    const bool isWhole = shown == text();
    if (const QString tip = isWhole ? QString() : text(); tip != toolTip())
        setToolTip(tip);
    if (isWhole || hasFocus())
        return QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.drawText(place, int(alignment()) | Qt::TextSingleLine, shown);
}
