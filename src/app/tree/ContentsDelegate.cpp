// SPDX-License-Identifier: MIT
#include "ContentsDelegate.h"

#include <QPainter>

void ContentsDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QString line = index.data(COUNT_LINE).toString();
    if (line.isEmpty())
        return LabelDelegate::paint(painter, option, index);
    QStyleOptionViewItem name = option;
    name.rect.setBottom(option.rect.bottom() - option.fontMetrics.height());
    LabelDelegate::paint(painter, name, index);
    const QRect place(option.rect.left(), name.rect.bottom() + 1, option.rect.width(), option.fontMetrics.height());
    QColor color = option.palette.color(QPalette::Text);
    color.setAlphaF(0.65F);
    painter->save();
    painter->setPen(color);
    painter->setFont(option.font);
    painter->setLayoutDirection(Qt::LeftToRight); // the line is English
    painter->drawText(place, Qt::AlignHCenter | Qt::AlignTop,
                      option.fontMetrics.elidedText(line, Qt::ElideRight, place.width()));
    painter->restore();
}

QSize ContentsDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize name = LabelDelegate::sizeHint(option, index);
    const QString line = index.data(COUNT_LINE).toString();
    if (line.isEmpty())
        return name;
    return {qMax(name.width(), option.fontMetrics.horizontalAdvance(line) + 2),
            name.height() + option.fontMetrics.height()};
}
