// SPDX-License-Identifier: MIT
#include "OkCancel.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

QDialogButtonBox *MakeOkCancel(QDialog &dialog)
{
    auto *const buttons = new QDialogButtonBox(&dialog);
    QPushButton *const ok = buttons->addButton(QDialogButtonBox::Ok);
    ok->setText(QStringLiteral("OK")); // whatever the desktop's text for it is
    ok->setDefault(true);
    buttons->addButton(QDialogButtonBox::Cancel)->setText(QStringLiteral("Cancel"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}
