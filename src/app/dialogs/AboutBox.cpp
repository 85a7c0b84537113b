// SPDX-License-Identifier: MIT
#include "AboutBox.h"

#include "UiIcons.h"

#include <QMessageBox>

void ShowAboutBox(QWidget *parent)
{
    QMessageBox box(parent);
    box.setWindowTitle(QStringLiteral("About Morvanite"));
    box.setIconPixmap(MakeIcon(UiIcon::Application).pixmap(QSize(64, 64), parent->devicePixelRatioF()));
    box.setText(QStringLiteral("Morvanite %1 (%2, %3)")
                    .arg(QStringLiteral(MORVANITE_VERSION), QStringLiteral(MORVANITE_BUILD_DATE),
                         QStringLiteral(MORVANITE_BUILD_TIME)));
    box.setInformativeText(QStringLiteral("Resource manager for applications on small devices."));
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}
