// SPDX-License-Identifier: MIT
#include "PropertyDelegate.h"

#include "PropertyModel.h"

#include <QPainter>

namespace
{

constexpr float SHADE = 0.09F; // opacity of the text's colour in the background of a heading

QStyleOptionViewItem InBold(const QStyleOptionViewItem &option)
{
    QStyleOptionViewItem other = option;
    other.font.setBold(true);
    other.fontMetrics = QFontMetrics(other.font);
    return other;
}

} // namespace

void PropertyDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (index.data(ROLE_IS_HEADING).toBool()) {
        QColor shade = option.palette.color(QPalette::Active, QPalette::Text);
        shade.setAlphaF(SHADE);
        painter->fillRect(option.rect, shade);
    }
    if (index.data(ROLE_IS_SET).toBool())
        bold.paint(painter, InBold(option), index);
    else
        ListCellDelegate::paint(painter, option, index);
}

QSize PropertyDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool isBold = index.data(ROLE_IS_SET).toBool();
    return isBold ? bold.sizeHint(InBold(option), index) : ListCellDelegate::sizeHint(option, index);
}

bool PropertyDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                 const QModelIndex &index)
{
    const bool isBold = index.data(ROLE_IS_SET).toBool();
    return isBold ? bold.helpEvent(event, view, InBold(option), index)
                  : ListCellDelegate::helpEvent(event, view, option, index);
}
