// SPDX-License-Identifier: MIT
#include "CFileWatchDlg.h"

#include "CellLine.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

CFileWatchDlg::CFileWatchDlg(const QString &path, qint32 *fileFlag, qint32 *typeFlag, bool hasUnsavedChanges,
                             QWidget *parent)
    : QDialog(parent), autoReloadFile(fileFlag), autoReloadType(typeFlag)
{
    setWindowTitle(QStringLiteral("Morvanite"));
    auto *const icon = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion, nullptr, this).pixmap(side, side));
    auto *const column = new QVBoxLayout;
    AddText(*column, path, hasUnsavedChanges);
    fileBox = AddCheckBox(*column, QStringLiteral("&Automatically reload this file"), autoReloadFile);
    typeBox = AddCheckBox(*column, QStringLiteral("&Automatically reload this type of file"), autoReloadType);
    auto *const top = new QHBoxLayout;
    top->setSpacing(2 * top->spacing());
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addLayout(column, 1);
    auto *const rows = new QVBoxLayout(this);
    rows->addLayout(top);
    rows->addSpacing(rows->spacing());
    rows->addLayout(MakeButtons(hasUnsavedChanges));
    rows->setSizeConstraint(QLayout::SetFixedSize); // as wide as the longest line
}

/// If a path is too long for the screen, its middle is elided, and the tool tip has the whole path.
void CFileWatchDlg::AddText(QVBoxLayout &column, const QString &path, bool hasUnsavedChanges)
{
    constexpr double MOST_OF_SCREEN = 0.75;
    const auto add = [&](const QString &text) {
        auto *const label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        column.addWidget(label);
        return label;
    };
    const QString line = CellLine(path, path.size());
    const int room = int(screen()->availableSize().width() * MOST_OF_SCREEN);
    const QString shown = fontMetrics().elidedText(line, Qt::ElideMiddle, room);
    const QString question =
        QStringLiteral("This file has been changed by another application, do you want to reload it?");
    QLabel *const message = add(QStringLiteral("%1\n\n%2").arg(shown, question));
    if (shown != line)
        message->setToolTip(line);
    message->setAccessibleName(QStringLiteral("%1\n\n%2").arg(line, question));
    if (hasUnsavedChanges)
        add(QStringLiteral("This project has unsaved changes. Reloading discards them."));
}

QCheckBox *CFileWatchDlg::AddCheckBox(QVBoxLayout &column, const QString &text, const qint32 *flag)
{
    if (!flag)
        return nullptr;
    auto *const box = new QCheckBox(text, this);
    box->setChecked(*flag != 0);
    column.addWidget(box);
    return box;
}

QLayout *CFileWatchDlg::MakeButtons(bool isNoDefault)
{
    auto *const yes = new QPushButton(QStringLiteral("&Yes"), this);
    auto *const no = new QPushButton(QStringLiteral("&No"), this);
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
    QPushButton *const usual = isNoDefault ? no : yes;
    usual->setDefault(true);
    usual->setFocus();
    auto *const row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(yes);
    row->addWidget(no);
    row->addStretch(1);
    return row;
}

void CFileWatchDlg::accept()
{
    if (fileBox)
        *autoReloadFile = fileBox->isChecked();
    if (typeBox)
        *autoReloadType = typeBox->isChecked();
    QDialog::accept();
}
