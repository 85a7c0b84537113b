// SPDX-License-Identifier: MIT
// Runs the tests of the window: they send real events to real widgets, without a screen.
#include "ProgramStyle.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(new ProgramStyle);
    return RUN_ALL_TESTS();
}
