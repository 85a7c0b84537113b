// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QApplication>
#include <QTimer>

/// Ends the program once a widget has been painted.
class PaintWatch : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, [] { _exit(0); }); // without a clean shutdown, which isn't measured
        return QObject::eventFilter(watched, event);
    }
};

inline int RunUntilPainted(QAbstractScrollArea &area)
{
    PaintWatch watch;
    area.viewport()->installEventFilter(&watch);
    return QApplication::exec();
}
