// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardLocks.h"

#include <QObject>

class QLabel;
class QStatusBar;

/// The fields at the right end of the status bar that show which locks of the keyboard are on.
class KeyboardIndicators : public QObject
{
public:
    /// Watches the bar's window for keys.
    explicit KeyboardIndicators(QStatusBar &bar);

    void Update();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    KeyboardLocks locks;
    QLabel *labels[KeyboardLocks::LOCKS] = {};
};
