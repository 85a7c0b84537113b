// SPDX-License-Identifier: MIT
#include "ListCellDelegate.h"

#include "LiteralTip.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QToolTip>

namespace
{

constexpr int MARGIN = 4;  // left and right of icon and text
constexpr int PADDING = 2; // above and below a text
constexpr int CORNER = 7;  // size of the mark of a gap

/// Mixes a part of one colour over another.
QColor Mixed(const QColor &over, const QColor &under, float part)
{
    const auto mix = [part](int a, int b) { return int(float(a) * part + float(b) * (1 - part)); };
    return {mix(over.red(), under.red()), mix(over.green(), under.green()), mix(over.blue(), under.blue())};
}

bool IsSelected(const QStyleOptionViewItem &option)
{
    return option.state.testFlag(QStyle::State_Selected);
}

/// A colour of the palette. A view that isn't active has the colours of an active one.
const QColor &ColorOf(const QStyleOptionViewItem &option, QPalette::ColorRole role)
{
    return option.palette.color(QPalette::Active, role);
}

QColor TextColor(const QStyleOptionViewItem &option)
{
    return ColorOf(option, IsSelected(option) ? QPalette::HighlightedText : QPalette::Text);
}

void DrawGapMark(QPainter &painter, const QStyleOptionViewItem &option)
{
    const QColor amber(0xD0, 0x80, 0x00);
    const QColor &base = ColorOf(option, QPalette::Base);
    if (!IsSelected(option))
        painter.fillRect(option.rect, Mixed(amber, base, 0.16F));
    const QColor corner = IsSelected(option) ? TextColor(option) : Mixed(amber, TextColor(option), 0.6F);
    const QPoint at = option.rect.topRight() + QPoint(1, 0);
    const QPoint triangle[] = {at, at - QPoint(CORNER, 0), at + QPoint(0, CORNER)};
    const QPen pen = painter.pen();
    const QBrush brush = painter.brush();
    painter.setPen(Qt::NoPen);
    painter.setBrush(corner);
    painter.drawConvexPolygon(triangle, 3);
    painter.setBrush(brush);
    painter.setPen(pen);
}

/// Draws the icon of a cell, if it has one, and returns the place of its text.
QRect DrawIcon(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QRect place = option.rect.adjusted(MARGIN, 0, -MARGIN, 0);
    const QVariant decoration = index.data(Qt::DecorationRole);
    if (!decoration.isValid())
        return place;
    const QRect icon(place.topLeft(), QSize(option.decorationSize.width(), place.height()));
    if (painter)
        decoration.value<QIcon>().paint(painter, icon.intersected(option.rect));
    place.setLeft(icon.right() + 1 + MARGIN);
    return place;
}

Qt::LayoutDirection DirectionOf(const QModelIndex &index)
{
    return index.data(ROLE_DIRECTION).value<Qt::LayoutDirection>();
}

} // namespace

ListCellDelegate::LaidOut ListCellDelegate::LayOut(const Key &key) const
{
    QTextOption lines;
    lines.setWrapMode(QTextOption::NoWrap);
    lines.setTextDirection(key.direction);
    LaidOut laidOut;
    const auto layOut = [&](const QString &text) {
        laidOut.text = QStaticText(text);
        laidOut.text.setTextFormat(Qt::PlainText);
        laidOut.text.setTextOption(lines);
        laidOut.text.prepare({}, cachedFont);
        laidOut.size = laidOut.text.size();
    };
    const QFontMetricsF metrics(cachedFont);
    // Layout takes most of the time, so a text that is probably too long is cut first.
    if (metrics.averageCharWidth() * qreal(key.text.size()) < key.width)
        layOut(key.text);
    if (laidOut.size.isEmpty() || laidOut.size.width() > key.width) {
        const QString shown = metrics.elidedText(key.text, Qt::ElideRight, key.width);
        laidOut.isCut = shown != key.text;
        layOut(shown);
    }
    return laidOut;
}

const ListCellDelegate::LaidOut &ListCellDelegate::Cached(const Key &key, const QFont &font, qreal scale) const
{
    if (font != cachedFont || scale != cachedScale) {
        cache.clear();
        cachedFont = font;
        cachedScale = scale;
    }
    if (const LaidOut *known = cache.object(key))
        return *known;
    auto *const made = new LaidOut(LayOut(key));
    cache.insert(key, made, int(key.text.size()) + 32); // always accepted: its cost is below the limit
    return *made;
}

void ListCellDelegate::DrawText(QPainter &painter, const QStyleOptionViewItem &option, const QRect &place,
                                const QString &text, Qt::LayoutDirection direction) const
{
    const LaidOut &laidOut =
        Cached({text, place.width(), direction}, option.font, painter.device()->devicePixelRatioF());
    const qreal free = place.width() - laidOut.size.width();
    const QPointF at(place.left() + (direction == Qt::RightToLeft ? free : 0),
                     place.top() + (place.height() - laidOut.size.height()) / 2);
    const QPen pen = painter.pen();
    const QFont font = painter.font();
    painter.setPen(TextColor(option));
    painter.setFont(option.font);
    const bool sticksOut = laidOut.size.height() > place.height() || free < 0;
    if (sticksOut) {
        painter.save();
        painter.setClipRect(option.rect, Qt::IntersectClip);
    }
    painter.drawStaticText(at, laidOut.text);
    if (sticksOut)
        painter.restore();
    painter.setFont(font);
    painter.setPen(pen);
}

void ListCellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (IsSelected(option))
        painter->fillRect(option.rect, ColorOf(option, QPalette::Highlight));
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty() && index.data(ROLE_IS_GAP).toBool())
        DrawGapMark(*painter, option);
    const QRect place = DrawIcon(painter, option, index);
    if (!text.isEmpty() && place.width() > 0)
        DrawText(*painter, option, place, text, DirectionOf(index));
}

QSize ListCellDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool hasIcon = index.data(Qt::DecorationRole).isValid();
    const QString text = index.data(Qt::DisplayRole).toString();
    const int width = option.fontMetrics.horizontalAdvance(text) + 1; // rounded up to whole pixels
    const int height = option.fontMetrics.height() + 2 * PADDING;
    if (!hasIcon)
        return {width + 2 * MARGIN, height};
    return {width + 3 * MARGIN + option.decorationSize.width(), qMax(height, option.decorationSize.height())};
}

bool ListCellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                 const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.data(Qt::ToolTipRole).toString().isEmpty())
        return QAbstractItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data(Qt::DisplayRole).toString();
    const QRect place = DrawIcon(nullptr, option, index);
    const Key key{text, place.width(), DirectionOf(index)};
    if (text.isEmpty() || !Cached(key, option.font, view->devicePixelRatioF()).isCut)
        return false;
    QToolTip::showText(event->globalPos(), LiteralTip(text), view->viewport(), option.rect);
    return true;
}
