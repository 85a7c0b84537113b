// SPDX-License-Identifier: MIT
#pragma once

#include "ActionRoute.h"
#include "RecentFiles.h"

#include <QList>

#include <map>
#include <optional>

class ProjectArea;
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

/// The menus, the keys and the tool bar of the main window, made from MenuTable. They show the state of each action.
class FrameMenus
{
public:
    /// Docks the tool bar in the window. All three arguments must exist for as long as the menus are used.
    FrameMenus(QMainWindow &mainWindow, ProjectArea &projectArea, const ActionRoute &actionRoute);
    FrameMenus(const FrameMenus &) = delete;
    FrameMenus &operator=(const FrameMenus &) = delete;

    /// Runs an action that the user has chosen.
    std::function<void(ActionId)> run;
    /// Opens a recent file by its number, from 0.
    std::function<void(int)> openRecent;

    [[nodiscard]] QToolBar &ToolBar() const { return *toolBar; }
    /// Shows the menu bar with or without a document, whichever applies, and the present state of each action.
    void Update();
    void ShowRecentFiles(const RecentFiles &files);

private:
    void AddAction(ActionId id, const char *text, const char *shortcuts, bool isToggle);
    void MakeActions();
    void MakeToolBar();
    void ShowMenus();
    void ShowWindows(QMenu *menu);

    QMainWindow &window;
    ProjectArea &area;
    const ActionRoute &route;
    std::map<ActionId, QAction *> actions;
    QList<QAction *> recentActions;
    QList<QAction *> windowActions; // of the Window menu, as it is shown or was shown last
    QToolBar *toolBar = nullptr;
    std::optional<bool> shownMenus; // whether they are those with a document
};
