#pragma once

#include <QAbstractItemDelegate>
#include <QCache>
#include <QFont>
#include <QStaticText>

/// What a model of a CListGrid tells of a cell beside its text.
enum ListCellRole : int
{
    ROLE_IS_GAP = Qt::UserRole + 1, ///< bool: an empty cell has a mark that it lacks a text
    ROLE_DIRECTION,                 ///< Qt::LayoutDirection of its text; nothing for left to right
};

/// Draws the cells of a CListGrid: a background, an icon where there is one, and the text in one line, cut with "…".
/// Texts that were laid out stay in a cache: several times as fast as the delegate of Qt. The texts must be of one line
/// and not very long (see CellLine.h).
///
/// A selected row has the full highlight colour without the focus too. Where a text is cut, the tool tip of the cell is
/// that of the model, or else the text. The frame of the row that has the focus is drawn by the list.
class ListCellDelegate : public QAbstractItemDelegate
{
public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    /// A text as it is drawn in a cell.
    struct LaidOut
    {
        QStaticText text;
        QSizeF size;
        bool isCut = false;
    };
    struct Key
    {
        QString text;
        int width; // that it may take
        Qt::LayoutDirection direction;
        bool operator==(const Key &) const = default;
        friend size_t qHash(const Key &key, size_t seed)
        {
            return qHashMulti(seed, key.text, key.width, int(key.direction));
        }
    };

    [[nodiscard]] LaidOut LayOut(const Key &key) const;
    [[nodiscard]] const LaidOut &Cached(const Key &key, const QFont &font, qreal scale) const;
    void DrawText(QPainter &painter, const QStyleOptionViewItem &option, const QRect &place, const QString &text,
                  Qt::LayoutDirection direction) const;

    // Bounded by the characters in it and a share for each text.
    static constexpr int MOST_CACHED = 200'000;
    mutable QCache<Key, LaidOut> cache{MOST_CACHED};
    // Of the texts in the cache.
    mutable QFont cachedFont;
    mutable qreal cachedScale = 0;
};
