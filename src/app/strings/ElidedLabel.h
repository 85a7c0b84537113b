// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPainter>

/// A line of plain text. If there is too little room, its middle is elided, and its tool tip has the whole text.
class ElidedLabel : public QLabel
{
public:
    explicit ElidedLabel(QWidget *parent) : QLabel(parent)
    {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
        if (const QString tip = shown == text() ? QString() : text(); tip != toolTip())
            setToolTip(tip);
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setLayoutDirection(Qt::LeftToRight); // as its order is
        const int leading = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
        painter.drawText(contentsRect(), leading | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    }
};
