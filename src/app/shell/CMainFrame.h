#pragma once

#include "ActionRoute.h"
#include "BarSizes.h"
#include "CChildFrame.h"
#include "ChannelTurn.h"
#include "EditActions.h"
#include "FramePlace.h"
#include "KeyboardIndicators.h"
#include "OutputTail.h"
#include "RecentFiles.h"
#include "UserBoxes.h"
#include "WaitCursor.h"

#include <QMainWindow>

#include <map>

class CInfoPane;
class CSizingControlBar;
class StatusPane;
class QListWidget;
class QMdiArea;
class QSessionManager;

/// The main window: menus, tool bar, status bar, the docking bars, and a window for each open project.
class CMainFrame : public QMainWindow, public IViewHost, public IActionTarget
{
public:
    CMainFrame(Environment &environment, ProcessTables &processTables, CDocManager &documentManager);
    ~CMainFrame() override;

    /// Puts window and bars where they were when the program ended.
    void Restore();
    /// Opens a project, or brings the window of an open one to the front. False when it doesn't open, which the user
    /// has been told.
    bool OpenProject(const QString &path);
    void BringToTop();

    /// Appends to the output pane, if that is in sight.
    void WriteOutput(QStringView text);
    /// The same for a line of its own.
    void WriteLine(const QString &text);

    /// Shows a notice in the document's window. While that is still being loaded the text waits for the window.
    void Notify(const CResDoc &document, const QString &text);
    /// A document is about to be loaded: what waits for another's window, which didn't load, goes.
    void DropWaitingNotices() { waitingNotices.clear(); }

    /// Ends the watching of files, with all that hangs on it.
    std::function<void()> stopWatching;

    /// A command of the channel runs, for as long as this lives: a label that is being edited is taken, and the status
    /// bar tells.
    class Busy
    {
    public:
        Busy(CMainFrame &mainFrame, quint32 command);
        ~Busy();
        Busy(const Busy &) = delete;
        Busy &operator=(const Busy &) = delete;

    private:
        CMainFrame &frame;
        WaitCursor cursor{Qt::BusyCursor};
    };

    [[nodiscard]] ChannelTurn &Turn() { return turn; }
    [[nodiscard]] CInfoPane &Output() { return *output; }
    [[nodiscard]] const StatusPane &Status() const { return *status; }
    [[nodiscard]] CSizingControlBar &OutputBar() { return *outputBar; }
    [[nodiscard]] CSizingControlBar &ToolboxBar() { return *toolboxBar; }
    /// The active project's window, or null.
    [[nodiscard]] CChildFrame *ActiveChild() const;

    // IViewHost
    [[nodiscard]] UserBoxes &Boxes() override { return boxes; }
    void ShowPane(Pane) override {}
    void RunAction(ActionId id) override;
    [[nodiscard]] bool IsEnabled(ActionId id) const override { return !turn.IsOn() && route.StateOf(id).enabled; }
    // IActionTarget
    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void MakeActions();
    void MakeToolBar();
    void MakeBars();
    QAction *AddAction(ActionId id, const QString &text, const QString &shortcuts, bool isToggle);
    /// Shows the menus that belong to what is open.
    void ShowMenus();
    void ShowRecentFiles();
    /// Lists the windows of projects at the end of the Window menu.
    void ShowWindows(QMenu *menu);
    /// Has menus, keys and tool bar show what each action is at this moment.
    void UpdateActions();
    void ShowTitle();
    void Opened(CDocument &document);
    void Activate(const CDocument &document);
    void EndSession(QSessionManager &session);
    bool TakeLabel();
    void ChooseProject();
    void OpenDropped(const QStringList &files);
    void GoToPane(int step);
    /// Cascades or tiles the windows of projects.
    void Arrange(ActionId id);
    void Cascade();
    void OpenRecent(int index);
    void ShowOutput(bool show);
    void ToggleToolbox();
    void FillToolbox();
    void StoreState();
    /// Asks about what isn't saved. True when all projects may be closed; `notices` then gets the texts that have come
    /// to their bars meanwhile, which standard error has as well.
    [[nodiscard]] bool MayCloseAll(QStringList &notices);
    [[nodiscard]] QStringList UnreadNotices() const;
    void TellUnread(const QStringList &texts);
    [[nodiscard]] std::vector<IActionTarget *> Targets() const;
    [[nodiscard]] QList<CChildFrame *> Children() const;

    ChannelTurn turn;
    UserBoxes boxes{*this, turn};
    Environment &env;
    ProcessTables &tables;
    CDocManager &documents;
    ActionRoute route;
    FocusedEdit focusedEdit;
    RecentFiles recentFiles;
    std::map<ActionId, QAction *> actions;
    QList<QAction *> recentActions;
    QList<QAction *> windowActions; // of the Window menu that is shown or was last
    QMdiArea *area;
    FramePlace place{*this};
    QToolBar *toolBar = nullptr;
    CSizingControlBar *toolboxBar = nullptr;
    CSizingControlBar *outputBar = nullptr;
    std::unique_ptr<BarSizes> barSizes;
    QListWidget *toolbox = nullptr;
    ToolboxState toolboxState;
    CInfoPane *output = nullptr;
    StatusPane *status = nullptr;
    KeyboardIndicators indicators{*statusBar()};
    std::map<const CResDoc *, QStringList> waitingNotices;
    std::optional<bool> shownMenus; // for a document or none
    OutputTail told;                // the end of the output since the user did something, seen or not
};
