#pragma once

#include <QCursor>
#include <QGuiApplication>

/// The pointer tells that the program is at work, for as long as this lives.
class WaitCursor
{
public:
    explicit WaitCursor(Qt::CursorShape shape = Qt::WaitCursor) { QGuiApplication::setOverrideCursor(shape); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
};
