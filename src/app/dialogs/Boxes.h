// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>

/// Shows a message box of the program and waits for the answer. `text` is plain text: markup in it is shown literally.
/// Both "\n" and "\r\n" are line breaks.
QMessageBox::StandardButton ShowBox(QWidget *parent, QMessageBox::Icon icon, const QString &text,
                                    QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
