// SPDX-License-Identifier: MIT
#include "CZoomRatioDlg.h"

#include "Boxes.h"
#include "OkCancel.h"
#include "ZoomInput.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>

CZoomRatioDlg::CZoomRatioDlg(int shownPercent, QWidget *parent)
    : QDialog(parent), percent(shownPercent), typed(new QLineEdit(QString::number(shownPercent), this))
{
    setWindowTitle(QStringLiteral("Zoom"));
    typed->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), typed));
    typed->selectAll();
    auto *const rows = new QFormLayout(this);
    rows->addRow(QStringLiteral("Percent:"), typed);
    rows->addRow(MakeOkCancel(*this));
}

void CZoomRatioDlg::accept()
{
    const std::optional<int> number = ZoomInput::Check(typed->text());
    if (number) {
        percent = *number;
        return QDialog::accept();
    }
    (void)ShowBox(this, QMessageBox::Warning, ZoomInput::Message());
    typed->setFocus();
    typed->selectAll();
}
