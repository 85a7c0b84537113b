// SPDX-License-Identifier: MIT
#include "Boxes.h"

QMessageBox::StandardButton ShowBox(QWidget *parent, QMessageBox::Icon icon, const QString &text,
                                    QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton)
{
    const QString lines = QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QMessageBox box(icon, QStringLiteral("Morvanite"), lines, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    return QMessageBox::StandardButton(box.exec());
}
