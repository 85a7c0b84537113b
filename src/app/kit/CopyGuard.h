// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QWidget>

/// Keeps the copy keys away from an item view. While the action Copy is disabled, the keys would reach the view, whose
/// default is to replace the contents of the clipboard.
class CopyGuard : public QObject
{
public:
    /// The view owns the guard.
    explicit CopyGuard(QWidget &view) : QObject(&view) { view.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy);
    }
};
