// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

/// Makes the application, without a screen, that fonts and pixmaps need.
inline void NeedApplication()
{
    static char name[] = "micro";
    static char *arguments[] = {name, nullptr};
    static int count = 1;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!QApplication::instance())
        new QApplication(count, arguments);
}
