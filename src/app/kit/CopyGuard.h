#pragma once

#include <QKeyEvent>
#include <QWidget>

/// Keeps the copy keys from an item view. While the action Copy is disabled they would reach the view, and its default
/// for them replaces what the clipboard holds.
class CopyGuard : public QObject
{
public:
    /// Belongs to the view.
    explicit CopyGuard(QWidget &view) : QObject(&view) { view.installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy);
    }
};
