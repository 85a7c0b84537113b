// SPDX-License-Identifier: MIT
#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the wait cursor for as long as this object exists.
class WaitCursor
{
public:
    explicit WaitCursor(Qt::CursorShape shape = Qt::WaitCursor) { QGuiApplication::setOverrideCursor(shape); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor &) = delete;
    WaitCursor &operator=(const WaitCursor &) = delete;
};
