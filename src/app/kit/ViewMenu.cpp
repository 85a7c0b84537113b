// SPDX-License-Identifier: MIT
#include "ViewMenu.h"

#include "MenuTable.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QStatusTipEvent>

void RunViewMenu(QWidget &view, std::span<const ViewMenuEntry> entries, const QPoint &globalPlace,
                 const std::function<ActionState(ActionId)> &stateOf, const std::function<void(ActionId)> &run)
{
    if (entries.empty())
        return;
    const QPointer<QWidget> owner = &view; // an action may close the view
    QMenu menu(&view);
    QActionGroup choices(&menu);
    for (const ViewMenuEntry &entry : entries) {
        if (entry.id == ACTION_NONE) {
            menu.addSeparator();
            continue;
        }
        QAction *const action =
            menu.addAction(QString::fromLatin1(entry.text), &view, [&run, id = entry.id] { run(id); });
        const ActionState state = stateOf(entry.id);
        action->setEnabled(state.enabled);
        if (entry.isChoice)
            choices.addAction(action);
        action->setCheckable(state.checked);
        action->setChecked(state.checked);
        action->setStatusTip(TipOf(entry.id));
    }
    // A menu that wasn't opened by a menu bar doesn't show status tips by itself.
    QObject::connect(&menu, &QMenu::hovered, &view, [&view](QAction *action) { action->showStatusText(&view); });
    menu.exec(globalPlace); // runs the chosen action
    if (!owner)
        return;
    QStatusTipEvent none{QString()};
    QApplication::sendEvent(owner, &none);
}
