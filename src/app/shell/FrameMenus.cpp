// SPDX-License-Identifier: MIT
#include "FrameMenus.h"

#include "MenuTable.h"
#include "Paths.h"
#include "ProjectArea.h"
#include "UiIcons.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>
#include <utility>

namespace
{

struct ActionIcon
{
    ActionId id;
    UiIcon icon;
};
constexpr ActionIcon ACTION_ICONS[] = {
    {ACTION_OPEN, UiIcon::Open}, {ACTION_SAVE, UiIcon::Save},     {ACTION_UNDO, UiIcon::Undo},
    {ACTION_REDO, UiIcon::Redo}, {ACTION_OUTPUT, UiIcon::Output}, {ACTION_ABOUT, UiIcon::About},
};

/// The tool tip of an action: what it does, and its key.
QString ToolTipOf(const QAction &action)
{
    QString text = action.text().remove(u'&');
    if (text.endsWith(QStringLiteral("...")))
        text.chop(3);
    const QString key = action.shortcut().toString(QKeySequence::NativeText);
    return key.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, key);
}

} // namespace

FrameMenus::FrameMenus(QMainWindow &mainWindow, ProjectArea &projectArea, const ActionRoute &actionRoute)
    : window(mainWindow), area(projectArea), route(actionRoute)
{
    MakeActions();
    MakeToolBar();
    ShowMenus();
}

void FrameMenus::AddAction(ActionId id, const char *text, const char *shortcuts, bool isToggle)
{
    auto *const action = new QAction(QString::fromLatin1(text), &window);
    QList<QKeySequence> keys;
    for (const QString &key : QString::fromLatin1(shortcuts).split(u' ', Qt::SkipEmptyParts))
        keys.append(QKeySequence(key, QKeySequence::PortableText));
    action->setShortcuts(keys);
    action->setCheckable(isToggle);
    action->setStatusTip(TipOf(id));
    QObject::connect(action, &QAction::triggered, &window, [this, id] { run(id); });
    window.addAction(action);
    actions[id] = action;
}

void FrameMenus::MakeActions()
{
    for (const bool hasDocument : {true, false}) {
        for (const Menu &menu : MenuBar(hasDocument)) {
            for (const MenuEntry &entry : menu.entries) {
                if (entry.id != ACTION_NONE && entry.id != ACTION_RECENT_FILE && !actions.contains(entry.id))
                    AddAction(entry.id, entry.text, entry.shortcuts, entry.isToggle);
            }
        }
    }
    for (const MenuEntry &entry : FurtherKeys())
        AddAction(entry.id, "", entry.shortcuts, false);
    for (int i = 0; i < RecentFiles::MOST; ++i) {
        auto *const action = new QAction(&window);
        QObject::connect(action, &QAction::triggered, &window, [this, i] { openRecent(i); });
        recentActions.append(action);
    }
    actions[ACTION_ABOUT]->setMenuRole(QAction::AboutRole);
    actions[ACTION_EXIT]->setMenuRole(QAction::QuitRole);
    for (const auto &[id, icon] : ACTION_ICONS) {
        actions[id]->setIcon(MakeIcon(icon));
        actions[id]->setIconVisibleInMenu(!actions[id]->isCheckable()); // the check mark needs the place
    }
}

void FrameMenus::MakeToolBar()
{
    toolBar = window.addToolBar(QStringLiteral("Standard"));
    toolBar->setObjectName(QStringLiteral("Standard"));
    toolBar->setAccessibleName(QStringLiteral("Tool bar"));
    toolBar->setIconSize(QSize(16, 16));
    for (const ActionId id : ToolBarActions()) {
        if (id == ACTION_NONE) {
            toolBar->addSeparator();
            continue;
        }
        actions[id]->setToolTip(ToolTipOf(*actions[id]));
        toolBar->addAction(actions[id]);
    }
    toolBar->toggleViewAction()->setVisible(false); // the View menu has its own entry
}

void FrameMenus::ShowMenus()
{
    const bool hasDocument = area.ActiveChild() != nullptr;
    if (shownMenus == hasDocument)
        return;
    shownMenus = hasDocument;
    windowActions.clear(); // their menu destroys them
    QMenuBar &bar = *window.menuBar();
    for (QAction *title : bar.actions())
        title->menu()->deleteLater();
    bar.clear();
    for (const Menu &menu : MenuBar(hasDocument)) {
        QMenu *const shown = bar.addMenu(QString::fromLatin1(menu.title));
        for (const MenuEntry &entry : menu.entries) {
            if (entry.id == ACTION_NONE)
                shown->addSeparator();
            else if (entry.id == ACTION_RECENT_FILE)
                shown->addActions(recentActions);
            else
                shown->addAction(actions[entry.id]);
        }
        QObject::connect(shown, &QMenu::aboutToShow, &window, [this] { Update(); });
        if (menu.listsWindows)
            QObject::connect(shown, &QMenu::aboutToShow, &window, [this, shown] { ShowWindows(shown); });
    }
}

void FrameMenus::ShowRecentFiles(const RecentFiles &files)
{
    const QStringList &paths = files.Paths();
    for (int i = 0; i < recentActions.size(); ++i) {
        QAction *const action = recentActions[i];
        action->setVisible(i < paths.size() || i == 0); // an empty list has one entry that says so
        action->setEnabled(i < paths.size());
        action->setText(i < paths.size() ? files.Label(i) : QStringLiteral("Recent File"));
        action->setStatusTip(i < paths.size() ? QStringLiteral("Opens %1.").arg(paths[i]) : TipOf(ACTION_RECENT_FILE));
    }
}

/// Lists the windows of projects at the end of the Window menu.
void FrameMenus::ShowWindows(QMenu *menu)
{
    qDeleteAll(std::exchange(windowActions, {menu->addSeparator()}));
    const QList<CChildFrame *> children = area.Children();
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
        QAction *const action = menu->addAction(label, &window, [this, &document] { area.Activate(document); });
        action->setCheckable(true);
        action->setChecked(child == area.ActiveChild());
        action->setStatusTip(QStringLiteral("Shows %1.").arg(document.m_strPathName));
        windowActions.append(action);
    }
}

void FrameMenus::Update()
{
    ShowMenus();
    for (const auto &[id, action] : actions) {
        const ActionState state = route.StateOf(id);
        action->setEnabled(state.enabled);
        if (action->isCheckable())
            action->setChecked(state.checked);
    }
}
