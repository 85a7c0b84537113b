// SPDX-License-Identifier: MIT
#pragma once

#include "ProjectTree.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>

/// Edits labels in place. Opening a menu doesn't end the editing, because the Edit menu applies to the label.
class LabelDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        auto *const edit = new QLineEdit(parent);
        edit->setMaxLength(LONGEST_LABEL);
        return edit;
    }

protected:
    bool eventFilter(QObject *editor, QEvent *event) override
    {
        if (event->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
            if (reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason)
                return false;
        }
        return QStyledItemDelegate::eventFilter(editor, event);
    }
};
