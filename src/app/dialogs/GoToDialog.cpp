// SPDX-License-Identifier: MIT
#include "GoToDialog.h"

#include "FolderKinds.h"
#include "ProjectTree.h"
#include "ResModel.h"
#include "UiIcons.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

namespace
{

constexpr int ROWS = 12;
constexpr int WIDTH = 44; // average characters

/// The place of a resource, such as "Images, 240x320".
QString PlaceOf(CResModel &model, const CResFolder &folder)
{
    QStringList names;
    for (const CResFolder *each : PathTo(model.root, &folder)) {
        if (each != &model.root)
            names.append(LabelOf(*each, model));
    }
    return names.join(QStringLiteral(", "));
}

} // namespace

GoToDialog::GoToDialog(CResModel &projectModel, QWidget *parent)
    : QDialog(parent), model(projectModel), typed(new QLineEdit(this)), list(new QListWidget(this))
{
    setWindowTitle(QStringLiteral("Go to ID"));
    typed->setPlaceholderText(QStringLiteral("Beginning of an ID or of words in it"));
    typed->setAccessibleName(windowTitle());
    list->setAccessibleName(QStringLiteral("IDs"));
    list->setUniformItemSizes(true);
    list->setFocusPolicy(Qt::NoFocus); // its keys work in the line edit
    typed->installEventFilter(this);
    connect(typed, &QLineEdit::textChanged, this, &GoToDialog::Fill);
    connect(list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto *const parts = new QVBoxLayout(this);
    parts->addWidget(typed);
    parts->addWidget(list, 1);
    Fill();
    resize(WIDTH * fontMetrics().averageCharWidth() * 2, (ROWS + 3) * (fontMetrics().height() + 4));
}

void GoToDialog::Fill()
{
    found = LocateIds(model, typed->text());
    list->clear();
    for (const LocatedId &each : found) {
        new QListWidgetItem(MakeIcon(IconOf(*each.folder)),
                            QStringLiteral("%1 \u2013 %2").arg(each.id, PlaceOf(model, *each.folder)), list);
    }
    list->setCurrentRow(0);
}

const LocatedId *GoToDialog::Chosen() const
{
    const int row = list->currentRow();
    return row < 0 ? nullptr : &found[size_t(row)];
}

/// Passes the keys that move in the list on to the list, because the line edit has the focus.
bool GoToDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *const key = static_cast<QKeyEvent *>(event);
        switch (key->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(list, event);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (Chosen())
                accept();
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}
