// SPDX-License-Identifier: MIT
#include "ListCellDelegate.h"

#include "LiteralTip.h"
#include "UiIcons.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QToolTip>

namespace
{

constexpr int MARGIN = 4;  // left and right of icon and text
constexpr int PADDING = 2; // above and below a text
constexpr int CORNER = 7;  // size of the mark of a gap
constexpr int MARK = 16;   // size of the mark of a cell

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

/// The parts of a cell.
struct Parts
{
    QRect text;
    QRect mark;   // empty if the cell has none
    int icon = 0; // of the mark
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// Divides the place that is left beside the icon of a cell.
Parts PartsOf(const QModelIndex &index, const QRect &place)
{
    Parts parts{place, {}, 0, DirectionOf(index)};
    const QVariant mark = index.data(ROLE_MARK);
    if (!mark.isValid())
        return parts;
    parts.icon = mark.toInt();
    parts.mark = QRect(0, 0, MARK, MARK);
    parts.mark.moveTop(place.top() + (place.height() - MARK) / 2);
    if (parts.direction == Qt::RightToLeft) {
        parts.mark.moveRight(place.right());
        parts.text.setRight(parts.mark.left() - 1 - MARGIN);
    } else {
        parts.mark.moveLeft(place.left());
        parts.text.setLeft(parts.mark.right() + 1 + MARGIN);
    }
    return parts;
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

void ListCellDelegate::DrawMark(QPainter &painter, const QStyleOptionViewItem &option, const QRect &place,
                                int icon) const
{
    const qreal scale = painter.device()->devicePixelRatioF();
    const qint64 palette = QGuiApplication::palette().cacheKey();
    if (scale != marksScale || palette != marksPalette) {
        marks.clear();
        marksScale = scale;
        marksPalette = palette;
    }
    QPixmap &mark = marks[{icon, IsSelected(option)}];
    if (mark.isNull())
        mark = MakeIcon(UiIcon(icon)).pixmap(place.size(), scale, IsSelected(option) ? QIcon::Selected : QIcon::Normal);
    if (option.rect.contains(place)) {
        painter.drawPixmap(place.topLeft(), mark);
        return;
    }
    const QRect seen = place.intersected(option.rect); // the column is narrow
    painter.drawPixmap(seen, mark,
                       QRectF(QPointF(seen.topLeft() - place.topLeft()) * scale, QSizeF(seen.size()) * scale).toRect());
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
    const Parts parts = PartsOf(index, DrawIcon(painter, option, index));
    if (!parts.mark.isEmpty())
        DrawMark(*painter, option, parts.mark, parts.icon);
    if (!text.isEmpty() && parts.text.width() > 0)
        DrawText(*painter, option, parts.text, text, parts.direction);
}

QSize ListCellDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool hasIcon = index.data(Qt::DecorationRole).isValid();
    const QString text = index.data(Qt::DisplayRole).toString();
    const int ofMark = index.data(ROLE_MARK).isValid() ? MARK + MARGIN : 0;
    const int width = option.fontMetrics.horizontalAdvance(text) + 1 + ofMark; // rounded up to whole pixels
    const int height = option.fontMetrics.height() + 2 * PADDING;
    if (!hasIcon)
        return {width + 2 * MARGIN, height};
    return {width + 3 * MARGIN + option.decorationSize.width(), qMax(height, option.decorationSize.height())};
}

bool ListCellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                                 const QModelIndex &index)
{
    const QString findings = index.data(ROLE_FINDINGS).toString();
    QString tip = index.data(Qt::ToolTipRole).toString();
    if (event->type() != QEvent::ToolTip || (findings.isEmpty() && !tip.isEmpty()))
        return QAbstractItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data(Qt::DisplayRole).toString();
    const Parts parts = PartsOf(index, DrawIcon(nullptr, option, index));
    const Key key{text, parts.text.width(), parts.direction};
    if (tip.isEmpty() && !text.isEmpty() && Cached(key, option.font, view->devicePixelRatioF()).isCut)
        tip = LiteralTip(text);
    if (!findings.isEmpty())
        tip += LiteralTip(findings);
    if (tip.isEmpty())
        return false;
    QToolTip::showText(event->globalPos(), tip, view->viewport(), option.rect);
    return true;
}
