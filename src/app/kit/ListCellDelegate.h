#pragma once

#include <QAbstractItemDelegate>
#include <QCache>
#include <QStaticText>

/// What a model of a CListGrid tells of a cell beside its text.
enum ListCellRole : int
{
    ROLE_IS_GAP = Qt::UserRole + 1, ///< bool: the cell has a mark that it lacks a text
    ROLE_DIRECTION,                 ///< Qt::LayoutDirection of its text; nothing for left to right
};

/// Draws the cells of a CListGrid: a background, an icon where there is one, and the text in one line, cut with "…".
/// Texts that were laid out stay in a cache: several times as fast as the delegate of Qt.
class ListCellDelegate : public QAbstractItemDelegate
{
public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
