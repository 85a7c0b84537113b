// SPDX-License-Identifier: MIT
#include "CZEP10ResDlg.h"

#include "CListGrid.h"
#include "OkCancel.h"
#include "V1ListModel.h"
#include "ViewBoxes.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace
{

constexpr int NAME_WIDTH = 100;
constexpr int PATH_WIDTH = 270;
constexpr int ROWS = 15;

// Users of the dialog know these texts.
constexpr char FILTER[] = "Gif files (*.gif)|*.gif|Jpg Files (*.jpg)|*.jpg|Png Fils (*.png)|*.png|"
                          "Midi Files (*.midi)|*.midi|Mp3 Files (*.mp3)|*.mp3|Avi Files (*.avi)|*.avi|"
                          "Bin Files (*.bin)|*.bin|All Files (*.*)|*.*||";

} // namespace

CZEP10ResDlg::CZEP10ResDlg(Environment &environment, const QString &projectPath, IViewBoxes &viewBoxes, QWidget *parent)
    : QDialog(parent), boxes(viewBoxes), list(environment, projectPath)
{
    list.Load();
    model = new V1ListModel(list, this);
    grid = new CListGrid(this);
    setWindowTitle(QStringLiteral("Dialog"));
    auto *const rows = new QVBoxLayout(this);
    rows->addWidget(MakeList(), 1);
    rows->addLayout(MakeButtons());
    grid->setFocus();
}

QWidget *CZEP10ResDlg::MakeList()
{
    auto *const group = new QGroupBox(QStringLiteral("Resource List"), this);
    grid->setModel(model);
    grid->setAccessibleName(group->title());
    grid->setColumnWidth(0, NAME_WIDTH);
    grid->setColumnWidth(1, PATH_WIDTH);
    grid->setMinimumWidth(NAME_WIDTH + PATH_WIDTH + grid->verticalScrollBar()->sizeHint().width() +
                          2 * grid->frameWidth());
    grid->setMinimumHeight(ROWS * grid->verticalHeader()->defaultSectionSize());
    auto *const rows = new QVBoxLayout(group);
    rows->addWidget(grid);
    return group;
}

QLayout *CZEP10ResDlg::MakeButtons()
{
    auto *const row = new QHBoxLayout;
    const auto add = [&](const QString &text, const QString &what, void (CZEP10ResDlg::*run)()) {
        auto *const button = new QPushButton(text, this);
        button->setAccessibleName(what);
        button->setToolTip(what);
        button->setFixedWidth(button->sizeHint().height() * 3 / 2);
        connect(button, &QPushButton::clicked, this, run);
        row->addWidget(button);
    };
    add(QStringLiteral("+"), QStringLiteral("Add files"), &CZEP10ResDlg::Add);
    add(QStringLiteral("-"), QStringLiteral("Remove the selected files from the list"), &CZEP10ResDlg::Remove);
    row->addStretch(1);
    row->addWidget(MakeOkCancel(*this));
    return row;
}

void CZEP10ResDlg::Add()
{
    const QStringList chosen = boxes.OpenFileDialog(QString::fromLatin1(FILTER), 1, true, {});
    if (chosen.isEmpty())
        return;
    model->Add(chosen);
    grid->scrollToBottom();
}

/// Removes the selected rows. The row that takes the place of the first of them gets the focus.
void CZEP10ResDlg::Remove()
{
    const std::vector<int> rows = grid->SelectedRows();
    model->Remove(rows);
    if (rows.empty() || model->rowCount() == 0)
        return;
    const QModelIndex next = model->index(qMin(rows.front(), model->rowCount() - 1), 0);
    grid->selectionModel()->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
}

void CZEP10ResDlg::accept()
{
    if (list.Save())
        QDialog::accept();
}
