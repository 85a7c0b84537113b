// SPDX-License-Identifier: MIT
#pragma once

#include "ChannelTurn.h"
#include "EditActions.h"
#include "FrameBars.h"
#include "FrameFindings.h"
#include "FrameMenus.h"
#include "FramePlace.h"
#include "KeyboardIndicators.h"
#include "ProjectArea.h"
#include "ProjectNotices.h"
#include "ProjectOpener.h"
#include "UserBoxes.h"
#include "WaitCursor.h"

#include <QMainWindow>

class StatusPane;
class QLabel;
class QSessionManager;

/// The main window: it has the bars, the menus and the windows of projects, routes actions to them, and closes the
/// program.
class CMainFrame : public QMainWindow, public IViewHost, public IActionTarget
{
public:
    CMainFrame(Environment &environment, ProcessTables &processTables, CDocManager &documentManager);
    ~CMainFrame() override;

    /// Restores the positions that the window and the bars had when the program last ended.
    void Restore();
    void BringToTop();

    /// Passed on to the windows of projects (CheckInput::countAlpha). To be set before a project is opened.
    CountAlpha countAlpha = nullptr;

    /// Stops watching files, and everything that depends on it.
    std::function<void()> stopWatching;

    /// Marks that a command of the channel runs, for as long as this object exists. Commits a label that is being
    /// edited, and shows in the status bar that the program is busy.
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
    [[nodiscard]] FrameBars &Bars() { return bars; }
    [[nodiscard]] FrameFindings &Findings() { return findings; }
    [[nodiscard]] ProjectNotices &Notices() { return notices; }
    [[nodiscard]] ProjectOpener &Projects() { return projects; }
    [[nodiscard]] const StatusPane &Status() const { return *status; }
    [[nodiscard]] const QLabel &Zoom() const { return *zoom; }
    /// The active project's window, or null.
    [[nodiscard]] CChildFrame *ActiveChild() const { return area->ActiveChild(); }

    /// Returns whether a cell or a label is being edited in place, even if another window is active.
    [[nodiscard]] bool IsEditing() const { return FocusedEdit::EditedView(focusWidget()) != nullptr; }

    // IViewHost
    [[nodiscard]] UserBoxes &Boxes() override { return boxes; }
    void ShowPane(Pane) override {}
    void RunAction(ActionId id) override;
    [[nodiscard]] bool TakeEdit() override;
    void AfterCommand(std::function<void()> call) override { turn.AfterCommand(std::move(call)); }
    [[nodiscard]] bool IsEnabled(ActionId id) const override { return !turn.IsOn() && route.StateOf(id).enabled; }
    void ShowLayoutMode(bool) override { ShowToolbox(); }
    void ShowZoom(const QString &) override {}
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
    void Connect();
    /// Updates menus, tool bar, title and status bar to the present state.
    void Update();
    void ShowTitle();
    void ShowToolbox();
    void Opened(CDocument &document);
    void EndSession(QSessionManager &session);
    void GoToPane(int step);
    void Arrange(ActionId id);
    void EditV1List();
    void StoreState();
    [[nodiscard]] bool MayCloseAll(QStringList &told);
    void TellUnread(const QStringList &texts);
    [[nodiscard]] std::vector<IActionTarget *> Targets() const;

    Environment &env;
    ProcessTables &tables;
    CDocManager &documents;
    ChannelTurn turn;
    UserBoxes boxes{*this, turn};
    ActionRoute route;
    FocusedEdit focusedEdit;
    ProjectArea *area;
    FramePlace place{*this};
    FrameMenus menus;
    FrameBars bars;
    ProjectNotices notices{*area};
    ProjectOpener projects;
    StatusPane *status;
    FrameFindings findings;
    QLabel *zoom; ///< the zoom of the preview in the active project
    KeyboardIndicators indicators;
};
