#pragma once

#include "LabelDelegate.h"

/// Draws a row of the contents: icon, name, and below the name a dim line that tells what is in it.
class ContentsDelegate : public LabelDelegate
{
public:
    /// The role of the line; a row without one has the name alone.
    static constexpr int COUNT_LINE = Qt::UserRole + 1;

    using LabelDelegate::LabelDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
