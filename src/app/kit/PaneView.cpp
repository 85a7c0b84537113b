// SPDX-License-Identifier: MIT
#include "PaneView.h"

void PaneView::OnUpdate(CView *, long, CView *target)
{
    if (target && target != this)
        return;
    isStale = !isVisible();
    if (isVisible())
        Rebuild();
}

void PaneView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Queued, because an update of all views follows when the user goes to the pane, and one rebuild is enough.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isStale)
                OnUpdate(nullptr, 0, nullptr);
        },
        Qt::QueuedConnection);
}
