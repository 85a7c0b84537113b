#pragma once

#include "CChildFrame.h"
#include "CommandRoute.h"
#include "EditCommands.h"
#include "KeyboardLocks.h"
#include "OutputTail.h"
#include "RecentFiles.h"
#include "WaitCursor.h"

#include <QMainWindow>

#include <map>

class CInfoPane;
class CSizingControlBar;
class QLabel;
class QListWidget;
class QMdiArea;
class QSessionManager;

/// The main window: menus, tool bar, status bar, the docking bars, and a window for each open project.
class CMainFrame : public QMainWindow, public IUserInterface, public IViewHost, public ICommandTarget
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

    /// Told to hold back commands of the channel while a box is open.
    std::function<void(bool pause)> pauseCommands;
    /// Ends the watching of files, with all that hangs on it.
    std::function<void()> stopWatching;

    /// A command of the channel runs, for as long as this lives. What the user is in the middle of ends (menus close, a
    /// label that is being edited is taken), what the user does is dropped, and the status bar tells.
    class Busy : public QObject
    {
    public:
        Busy(CMainFrame &mainFrame, quint32 command);
        ~Busy() override;

        bool eventFilter(QObject *watched, QEvent *event) override;

    private:
        CMainFrame &frame;
        WaitCursor cursor{Qt::BusyCursor};
        Qt::MouseButtons dropped; // pressed during the command
    };

    /// Has something done as soon as no command of the channel runs.
    void AfterCommand(std::function<void()> action);

    [[nodiscard]] CInfoPane &Output() { return *output; }
    [[nodiscard]] CSizingControlBar &OutputBar() { return *outputBar; }
    [[nodiscard]] CSizingControlBar &ToolboxBar() { return *toolboxBar; }
    /// The command of the channel that runs; 0 when none does.
    [[nodiscard]] quint32 BusyCommand() const { return busyCommand; }
    /// The active project's window, or null.
    [[nodiscard]] CChildFrame *ActiveChild() const;

    // IUserInterface
    void MessageBox(const QString &text) override;
    QStringList OpenFileDialog(const QString &filter, int selectedFilter, bool multiSelect,
                               const QString &initialName) override;
    // IViewHost
    [[nodiscard]] bool AskYesNo(const QString &question) override;
    [[nodiscard]] Answer AskYesNoCancel(const QString &question) override;
    void ShowMessage(const QString &text) override { MessageBox(text); }
    void ShowPane(Pane) override {}
    void RunCommand(int command) override;
    [[nodiscard]] bool IsEnabled(int command) const override
    {
        return busyCommand == 0 && route.StateOf(command).enabled;
    }
    // ICommandTarget
    [[nodiscard]] std::optional<CommandState> StateOf(int command) const override;
    void Run(int command) override;

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    class ModalBox;

    void MakeActions();
    void MakeToolBar();
    void MakeStatusBar();
    void MakeBars();
    QAction *AddAction(int command, const QString &text, const QString &shortcuts, bool isToggle);
    /// Shows the menus that belong to what is open.
    void ShowMenus();
    void ShowRecentFiles();
    /// Lists the windows of projects at the end of the Window menu.
    void ShowWindows(QMenu *menu);
    /// Has menus, keys and tool bar show what each command is at this moment.
    void UpdateCommands();
    void UpdateIndicators();
    void UpdateIndicatorsAfter(const QKeyEvent &event);
    void ShowTitle();
    void Opened(CDocument &document);
    void Activate(const CDocument &document);
    void EndSession(QSessionManager &session);
    bool TakeLabel();
    void ChooseProject();
    void OpenDropped(const QStringList &files);
    void GoToPane(int step);
    void OpenRecent(int index);
    void ShowOutput(bool show);
    void ToggleToolbox();
    void ShowAbout();
    void FillToolbox();
    void StoreState();
    [[nodiscard]] bool MayCloseAll();
    [[nodiscard]] std::vector<ICommandTarget *> Targets() const;
    [[nodiscard]] QList<CChildFrame *> Children() const;

    Environment &env;
    ProcessTables &tables;
    CDocManager &documents;
    CommandRoute route;
    FocusedEdit focusedEdit;
    RecentFiles recentFiles;
    KeyboardLocks locks;
    std::map<int, QAction *> actions;
    QList<QAction *> recentActions;
    QList<QAction *> windowActions; // of the Window menu that is shown or was last
    QMdiArea *area;
    QToolBar *toolBar = nullptr;
    CSizingControlBar *toolboxBar = nullptr;
    CSizingControlBar *outputBar = nullptr;
    QListWidget *toolbox = nullptr;
    ToolboxState toolboxState;
    CInfoPane *output = nullptr;
    QLabel *indicators[KeyboardLocks::LOCKS] = {};
    std::optional<bool> shownMenus; // for a document or none
    quint32 busyCommand = 0;
    std::vector<std::function<void()>> afterCommand;
    OutputTail told; // the end of the output since the user did something, seen or not
    int openBoxes = 0;
    int messages = 0; // how many the user was shown, or is to be
};
