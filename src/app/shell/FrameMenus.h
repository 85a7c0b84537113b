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

/// The menus, the keys and the tool bar of the main window, as MenuTable has them, and what they show of each action.
class FrameMenus
{
public:
    /// All three must live longer than the menus are used. The tool bar is docked in the window.
    FrameMenus(QMainWindow &mainWindow, ProjectArea &projectArea, const ActionRoute &actionRoute);
    FrameMenus(const FrameMenus &) = delete;
    FrameMenus &operator=(const FrameMenus &) = delete;

    /// Carries out an action that the user has chosen.
    std::function<void(ActionId)> run;
    /// Opens a recent file; its number is from 0.
    std::function<void(int)> openRecent;

    [[nodiscard]] QToolBar &ToolBar() const { return *toolBar; }
    /// Shows the menus that belong to what is open, and each action as it is at this moment.
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
    QList<QAction *> windowActions; // of the Window menu that is shown or was last
    QToolBar *toolBar = nullptr;
    std::optional<bool> shownMenus; // for a document or none
};
