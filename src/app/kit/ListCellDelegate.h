// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemDelegate>
#include <QCache>
#include <QFont>
#include <QHash>
#include <QPixmap>
#include <QStaticText>

/// The roles of a CListGrid's model in addition to a cell's text.
enum ListCellRole : int
{
    ROLE_IS_GAP = Qt::UserRole + 1, ///< bool: an empty cell is marked as lacking a text
    ROLE_DIRECTION,                 ///< Qt::LayoutDirection of the text; nothing for left to right
    ROLE_MARK,     ///< int: the UiIcon that marks a cell, at the leading edge of the text; nothing for no mark
    ROLE_FINDINGS, ///< QString: what is wrong with a cell, one line each; shown below the text in the tool tip
};

/// Draws the cells of a CListGrid: a background, an icon if there is one, and the text in one line, elided with "…".
/// Keeps texts that have been laid out in a cache, which makes it several times as fast as Qt's delegate. Texts must
/// have one line and must not be very long (see CellLine.h).
///
/// A selected row has the full highlight colour even without the focus. The tool tip of a cell with an elided text is
/// that of the model, or else the text; what is wrong with the cell follows. The list itself draws the frame of the row
/// with the focus.
class ListCellDelegate : public QAbstractItemDelegate
{
public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    /// A text that has been laid out for a cell.
    struct LaidOut
    {
        QStaticText text;
        QSizeF size;
        bool isCut = false;
    };
    struct Key
    {
        QString text;
        int width; // the width available to it
        Qt::LayoutDirection direction;
        bool operator==(const Key &) const = default;
        friend size_t qHash(const Key &key, size_t seed)
        {
            return qHashMulti(seed, key.text, key.width, int(key.direction));
        }
    };

    [[nodiscard]] LaidOut LayOut(const Key &key) const;
    [[nodiscard]] const LaidOut &Cached(const Key &key, const QFont &font, qreal scale) const;
    void DrawMark(QPainter &painter, const QStyleOptionViewItem &option, const QRect &place, int icon) const;
    void DrawText(QPainter &painter, const QStyleOptionViewItem &option, const QRect &place, const QString &text,
                  Qt::LayoutDirection direction) const;

    // The limit of the cache, in characters. Each text adds a fixed share to its characters.
    static constexpr int MOST_CACHED = 200'000;
    mutable QCache<Key, LaidOut> cache{MOST_CACHED};
    // The font and the scale of the texts in the cache.
    mutable QFont cachedFont;
    mutable qreal cachedScale = 0;
    // The marks as pixels. They are painted several times as fast as vectors.
    mutable QHash<std::pair<int, bool>, QPixmap> marks; // by the icon, and whether the row is selected
    mutable qreal marksScale = 0;
    mutable qint64 marksPalette = 0;
};
