// The menus of the main frame, and what they show of the actions.
#include "CMainFrame.h"
#include "MenuTable.h"
#include "Paths.h"
#include "StatusPane.h"

#include <QMenuBar>

#include <algorithm>
#include <utility>

QAction *CMainFrame::AddAction(ActionId id, const QString &text, const QString &shortcuts, bool isToggle)
{
    auto *const action = new QAction(text, this);
    QList<QKeySequence> keys;
    for (const QString &key : shortcuts.split(u' ', Qt::SkipEmptyParts))
        keys.append(QKeySequence(key, QKeySequence::PortableText));
    action->setShortcuts(keys);
    action->setCheckable(isToggle);
    action->setStatusTip(TipOf(id));
    connect(action, &QAction::triggered, this, [this, id] { RunAction(id); });
    addAction(action);
    actions[id] = action;
    return action;
}

void CMainFrame::MakeActions()
{
    for (const bool hasDocument : {true, false}) {
        for (const Menu &menu : MenuBar(hasDocument)) {
            for (const MenuEntry &entry : menu.entries) {
                if (entry.id != ACTION_NONE && entry.id != ACTION_RECENT_FILE && !actions.contains(entry.id))
                    AddAction(entry.id, QString::fromLatin1(entry.text), QString::fromLatin1(entry.shortcuts),
                              entry.isToggle);
            }
        }
    }
    for (const MenuEntry &entry : FurtherKeys())
        AddAction(entry.id, QString(), QString::fromLatin1(entry.shortcuts), false);
    for (int i = 0; i < RecentFiles::MOST; ++i) {
        auto *const action = new QAction(this);
        connect(action, &QAction::triggered, this, [this, i] { OpenRecent(i); });
        recentActions.append(action);
    }
    actions[ACTION_ABOUT]->setMenuRole(QAction::AboutRole);
    actions[ACTION_EXIT]->setMenuRole(QAction::QuitRole);
}

void CMainFrame::ShowMenus()
{
    const bool hasDocument = ActiveChild() != nullptr;
    if (shownMenus == hasDocument)
        return;
    shownMenus = hasDocument;
    windowActions.clear(); // they go with their menu
    for (QAction *title : menuBar()->actions())
        title->menu()->deleteLater();
    menuBar()->clear();
    for (const Menu &menu : MenuBar(hasDocument)) {
        QMenu *const shown = menuBar()->addMenu(QString::fromLatin1(menu.title));
        for (const MenuEntry &entry : menu.entries) {
            if (entry.id == ACTION_NONE)
                shown->addSeparator();
            else if (entry.id == ACTION_RECENT_FILE)
                shown->addActions(recentActions);
            else
                shown->addAction(actions[entry.id]);
        }
        connect(shown, &QMenu::aboutToShow, this, [this] { UpdateActions(); });
        if (menu.listsWindows)
            connect(shown, &QMenu::aboutToShow, this, [this, shown] { ShowWindows(shown); });
    }
    ShowRecentFiles();
}

void CMainFrame::ShowRecentFiles()
{
    const QStringList &paths = recentFiles.Paths();
    for (int i = 0; i < recentActions.size(); ++i) {
        QAction *const action = recentActions[i];
        action->setVisible(i < paths.size() || i == 0); // an empty list shows that there is one
        action->setEnabled(i < paths.size());
        action->setText(i < paths.size() ? recentFiles.Label(i) : QStringLiteral("Recent File"));
        action->setStatusTip(i < paths.size() ? QStringLiteral("Opens %1.").arg(paths[i]) : TipOf(ACTION_RECENT_FILE));
    }
}

void CMainFrame::ShowWindows(QMenu *menu)
{
    qDeleteAll(std::exchange(windowActions, {menu->addSeparator()}));
    const QList<CChildFrame *> children = Children();
    for (const CChildFrame *child : children) {
        const CDocument &document = child->Document();
        QString label = FileTitle(document.m_strPathName);
        const auto isNamesake = [&](const CChildFrame *other) {
            return FileTitle(other->Document().PathName()) == label;
        };
        if (std::count_if(children.begin(), children.end(), isNamesake) > 1)
            label += QStringLiteral(" (%1)").arg(DirectoryOf(document.m_strPathName));
        label.replace(u'&', QStringLiteral("&&"));
        if (windowActions.size() < 10)
            label.prepend(QStringLiteral("&%1 ").arg(windowActions.size()));
        QAction *const action = menu->addAction(label, this, [this, &document] { Activate(document); });
        action->setCheckable(true);
        action->setChecked(child == ActiveChild());
        action->setStatusTip(QStringLiteral("Shows %1.").arg(document.m_strPathName));
        windowActions.append(action);
    }
}

void CMainFrame::UpdateActions()
{
    ShowMenus();
    for (const auto &[id, action] : actions) {
        const ActionState state = route.StateOf(id);
        action->setEnabled(state.enabled);
        if (action->isCheckable())
            action->setChecked(state.checked);
    }
    ShowTitle();
    const CChildFrame *const child = ActiveChild();
    status->Show(child ? &child->Document() : nullptr);
}
