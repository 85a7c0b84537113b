// SPDX-License-Identifier: MIT
#pragma once

#include "LabelDelegate.h"

/// Draws a row of the contents: an icon, the name, and below the name a dim line that says what the folder has.
class ContentsDelegate : public LabelDelegate
{
public:
    /// The role of the dim line. A row without it shows only the name.
    static constexpr int COUNT_LINE = Qt::UserRole + 1;

    using LabelDelegate::LabelDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
