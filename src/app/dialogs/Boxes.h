#pragma once

#include <QMessageBox>

/// Shows a box of the program and waits for the answer. `text` is plain: what looks like markup in it is shown. Both
/// "\n" and "\r\n" are line breaks.
QMessageBox::StandardButton ShowBox(QWidget *parent, QMessageBox::Icon icon, const QString &text,
                                    QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
