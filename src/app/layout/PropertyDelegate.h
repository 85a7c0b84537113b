// SPDX-License-Identifier: MIT
#pragma once

#include "ListCellDelegate.h"

/// Draws the cells of the property grid: headings with a shade, and the names of properties that have a value in bold.
class PropertyDelegate : public ListCellDelegate
{
public:
    using ListCellDelegate::ListCellDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    ListCellDelegate bold; // a separate delegate, so that texts that are laid out in bold are kept separately
};
