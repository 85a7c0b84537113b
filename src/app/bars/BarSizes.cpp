// SPDX-License-Identifier: MIT
#include "BarSizes.h"

#include "CSizingControlBar.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QTimer>

#include <algorithm>

BarSizes::BarSizes(QMainWindow &mainWindow, const QList<CSizingControlBar *> &allBars)
    : window(mainWindow), bars(allBars)
{
    window.installEventFilter(this);
    for (const CSizingControlBar *bar : bars) {
        connect(bar, &QDockWidget::topLevelChanged, this, [this] { ApplySoon(); });
        connect(bar, &QDockWidget::dockLocationChanged, this, [this] { ApplySoon(); });
        connect(bar, &QDockWidget::visibilityChanged, this, [this] { ApplySoon(); });
    }
}

/// Deferred, because the layout hasn't finished its work when it emits the signals.
void BarSizes::ApplySoon()
{
    if (isDue)
        return;
    isDue = true;
    QTimer::singleShot(0, this, [this] {
        isDue = false;
        Apply();
    });
}

QList<CSizingControlBar *> BarSizes::Docked() const
{
    QList<CSizingControlBar *> docked;
    std::copy_if(bars.begin(), bars.end(), std::back_inserter(docked),
                 [](const CSizingControlBar *bar) { return !bar->isHidden() && !bar->isFloating(); });
    return docked;
}

void BarSizes::Apply()
{
    for (CSizingControlBar *bar : bars)
        bar->PlaceFloating();
    const QList<CSizingControlBar *> docked = Docked();
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        QList<QDockWidget *> changed;
        QList<int> wanted;
        for (CSizingControlBar *bar : docked) {
            const Qt::DockWidgetArea area = window.dockWidgetArea(bar);
            const bool isVertical = area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
            // A bar is as long as the window's edge, unless it shares the edge.
            const bool isFree = isVertical == (orientation == Qt::Horizontal) ||
                                std::count_if(docked.begin(), docked.end(), [&](CSizingControlBar *other) {
                                    return window.dockWidgetArea(other) == area;
                                }) > 1;
            const QSize size = bar->PreferredSize();
            if (!isFree)
                continue;
            changed.append(bar);
            wanted.append(orientation == Qt::Horizontal ? size.width() : size.height());
        }
        if (!changed.isEmpty())
            window.resizeDocks(changed, wanted, orientation);
    }
}

bool BarSizes::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
        Apply();
        break;
    case QEvent::MouseButtonPress: // the window gets only presses outside of its widgets: on a divider
        atPress.clear();
        for (const CSizingControlBar *bar : bars)
            atPress.append(bar->size());
        break;
    case QEvent::MouseButtonRelease:
        for (CSizingControlBar *bar : Docked()) {
            if (const QSize before = atPress.value(bars.indexOf(bar)); before.isValid())
                bar->TakeChange(before);
        }
        atPress.clear();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
