// SPDX-License-Identifier: MIT
#include "CheckDialog.h"

#include "OkCancel.h"

#include <QAbstractScrollArea>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

CheckDialog::CheckDialog(QWidget *parent) : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Select..."));
}

void CheckDialog::MakeContent(QAbstractScrollArea &boxes, bool isEmpty, const std::function<void(bool checked)> &setAll)
{
    auto *const buttons = new QHBoxLayout;
    for (const bool checked : {true, false}) {
        auto *const all = new QPushButton(checked ? QStringLiteral("Select All") : QStringLiteral("Clear All"), this);
        all->setEnabled(!isEmpty);
        connect(all, &QPushButton::clicked, this, [setAll, checked] { setAll(checked); });
        buttons->addWidget(all);
    }
    buttons->addStretch(1);
    buttons->addWidget(MakeOkCancel(*this));
    auto *const rows = new QVBoxLayout(this);
    rows->addWidget(&boxes, 1);
    rows->addLayout(buttons);
}

void CheckDialog::FitSize(const QAbstractScrollArea &boxes, const QSize &size)
{
    constexpr double MOST_OF_SCREEN = 0.9;
    const int frame = 2 * boxes.frameWidth();
    const QMargins margins = layout()->contentsMargins();
    const QSize wanted(size.width() + boxes.verticalScrollBar()->sizeHint().width() + frame + margins.left() +
                           margins.right(),
                       size.height() + frame + sizeHint().height() - boxes.sizeHint().height());
    resize(wanted.expandedTo(minimumSizeHint()).boundedTo(screen()->availableSize() * MOST_OF_SCREEN));
}
