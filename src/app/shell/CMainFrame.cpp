// SPDX-License-Identifier: MIT
#include "CMainFrame.h"

#include "Actions.h"
#include "CInfoPane.h"
#include "CZEP10ResDlg.h"
#include "CommandRecord.h"
#include "DroppedFiles.h"
#include "Environment.h"
#include "FindingCountsButton.h"
#include "FindingsPane.h"
#include "IdeCommandHandler.h"
#include "Paths.h"
#include "StatusPane.h"
#include "ToolboxList.h"
#include "UiIcons.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QSessionManager>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

#include <cstdio>
#include <utility>

CMainFrame::CMainFrame(Environment &environment, ProcessTables &processTables, CDocManager &documentManager)
    : env(environment), tables(processTables), documents(documentManager), area(new ProjectArea(this)),
      menus(*this, *area, route), bars(*this, env), projects(env, tables, documents, boxes),
      status(new StatusPane(statusBar())), findings(bars, *area, *statusBar(), *this), zoom(new QLabel(statusBar())),
      indicators(*statusBar())
{
    setWindowTitle(QStringLiteral("Morvanite"));
    setWindowIcon(MakeIcon(UiIcon::Application));
    setAcceptDrops(true);
    setDockNestingEnabled(true);
    if (const QScreen *own = screen())
        place.SetSmallest(SmallestFrame(own->availableSize()));
    setCentralWidget(area);
    statusBar()->addWidget(status, 1);
    zoom->setAccessibleName(QStringLiteral("Zoom"));
    for (QWidget *field : {static_cast<QWidget *>(zoom), static_cast<QWidget *>(&findings.Counts())})
        statusBar()->insertPermanentWidget(1, field); // right of the messages, left of the keyboard's locks
    Connect();
    menus.ShowRecentFiles(projects.Recent());
}

void CMainFrame::Connect()
{
    route.targets = [this] { return Targets(); };
    boxes.unseenOutput = [this] { return bars.UnseenOutput(); };
    menus.run = [this](ActionId id) { RunAction(id); };
    menus.openRecent = [this](int index) { projects.OpenRecent(index); };
    bars.Classes().chosen = [this](const ClassDescriptor &type) {
        if (ActiveChild() && !turn.IsOn())
            ActiveChild()->AddComponent(type);
    };
    findings.isEditing = [this] { return IsEditing(); };
    projects.opening = [this] { bars.BeginOutput(); };
    projects.recentChanged = [this] { menus.ShowRecentFiles(projects.Recent()); };
    documents.opened = [this](CDocument &document) { Opened(document); };
    documents.foundOpen = [this](const CDocument &document) { area->Activate(document); };
    connect(qApp, &QGuiApplication::commitDataRequest, this, &CMainFrame::EndSession, Qt::DirectConnection);
    // Whatever has happened, menus and tool bar are updated before the program waits for the user again.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] { Update(); });
}

CMainFrame::~CMainFrame()
{
    documents.opened = nullptr;
    documents.foundOpen = nullptr;
    disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
    for (CChildFrame *child : area->Children())
        delete child; // before the documents that its views read
}

std::vector<IActionTarget *> CMainFrame::Targets() const
{
    auto *const self = const_cast<CMainFrame *>(this);
    CInfoPane *const output = &self->bars.Output();
    const bool isInOutput = focusedEdit.Focus() == output;
    FindingsPane *const list = &self->bars.Findings();
    CChildFrame *const child = ActiveChild();
    return {isInOutput ? static_cast<IActionTarget *>(output) : nullptr,
            &self->focusedEdit,
            list->IsList(focusedEdit.Focus()) ? list : nullptr,
            child ? child->ActiveView() : nullptr,
            child,
            &self->findings,
            self};
}

/// Shows the active project's name. For a maximised project the title is the same as the one that its window sets, so
/// that the two don't replace each other's.
void CMainFrame::ShowTitle()
{
    const CChildFrame *const child = ActiveChild();
    const QString title = !child                 ? QStringLiteral("Morvanite")
                          : child->isMaximized() ? QStringLiteral("Morvanite - [%1]").arg(child->windowTitle())
                                                 : QStringLiteral("Morvanite - %1").arg(child->windowTitle());
    if (windowTitle() != title)
        setWindowTitle(title);
    const bool isModified = child && child->isWindowModified();
    if (isWindowModified() != isModified)
        setWindowModified(isModified); // sends an event each time
}

/// Updates the Toolbox for the active project.
void CMainFrame::ShowToolbox()
{
    const CChildFrame *const child = ActiveChild();
    bars.FollowProject(child ? &child->Document() : nullptr, child && child->layoutMode != 0);
}

void CMainFrame::Update()
{
    ShowToolbox();
    menus.Update();
    ShowTitle();
    const CChildFrame *const child = ActiveChild();
    status->Show(child ? &child->Document() : nullptr);
    zoom->setText(child ? child->Zoom() : QString());
    zoom->setVisible(!zoom->text().isEmpty());
    findings.Update();
}

std::optional<ActionState> CMainFrame::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_OPEN:
    case ACTION_NEW_PROJECT:
    case ACTION_EXIT:
    case ACTION_ABOUT:
    case ACTION_NEW_FILE:
    case ACTION_V1_LIST:
        return ActionState{};
    case ACTION_TOOLBAR:
        return ActionState{true, !menus.ToolBar().isHidden()};
    case ACTION_STATUS_BAR:
        return ActionState{true, !statusBar()->isHidden()};
    case ACTION_OUTPUT:
        return ActionState{true, bars.IsOutputShown()};
    case ACTION_TOOLBOX:
        return ActionState{ActiveChild() && ActiveChild()->layoutMode != 0, bars.IsToolboxShown()};
    case ACTION_CASCADE:
    case ACTION_TILE:
    case ACTION_ARRANGE_ICONS:
        return ActionState{ActiveChild() != nullptr};
    case ACTION_NEXT_PANE:
    case ACTION_PREVIOUS_PANE:
        return ActionState{};
    default:
        return std::nullopt;
    }
}

void CMainFrame::Run(ActionId id)
{
    switch (id) {
    case ACTION_OPEN:
        return projects.Choose(ActiveChild() ? ActiveChild()->Document().PathName() : QString());
    case ACTION_NEW_PROJECT:
        return projects.Create(ActiveChild() ? ActiveChild()->Document().PathName() : QString(), this);
    case ACTION_EXIT:
        close();
        return;
    case ACTION_ABOUT:
        return boxes.ShowAbout();
    case ACTION_TOOLBAR:
        return menus.ToolBar().setVisible(menus.ToolBar().isHidden());
    case ACTION_STATUS_BAR:
        return statusBar()->setVisible(statusBar()->isHidden());
    case ACTION_OUTPUT:
        return bars.ShowOutput(!bars.IsOutputShown());
    case ACTION_TOOLBOX:
        return bars.ToggleToolbox();
    case ACTION_NEXT_PANE:
        return GoToPane(1);
    case ACTION_PREVIOUS_PANE:
        return GoToPane(-1);
    case ACTION_CASCADE:
    case ACTION_TILE:
        return Arrange(id);
    case ACTION_ARRANGE_ICONS:
        return area->ArrangeIcons();
    case ACTION_V1_LIST:
        return EditV1List();
    default:
        return;
    }
}

/// Cascades or tiles the windows of projects.
void CMainFrame::Arrange(ActionId id)
{
    const QPointer<QWidget> focus = focusedEdit.Focus();
    if (id == ACTION_CASCADE)
        area->Cascade();
    else
        area->tileSubWindows();
    if (focus)
        focus->setFocus(); // a window loses it when it changes its form
}

/// Edits the list of the project that was opened last, whichever is active. The list is in that project's code page, in
/// which a pack reads it. The project itself may be closed by now.
void CMainFrame::EditV1List()
{
    Environment ofProject(env);
    if (!tables.projectPath.isEmpty() && !ofProject.UseProjectSettings(DirectoryOf(tables.projectPath)))
        return boxes.ShowMessage(
            QStringLiteral("The list can't be opened: the settings of %1 can't be used. The output explains why.")
                .arg(tables.projectPath));
    CZEP10ResDlg dialog(ofProject, tables.projectPath, boxes, this);
    (void)boxes.RunDialog(dialog);
}

/// The panes are those of the active project, and the Toolbox and the output while they are visible.
void CMainFrame::GoToPane(int step)
{
    CChildFrame *const child = ActiveChild();
    QList<QWidget *> panes = child ? child->Panes() : QList<QWidget *>();
    if (bars.IsToolboxShown())
        panes.append(&bars.Classes());
    if (bars.IsOutputShown())
        panes.append(&bars.OutputPage());
    const QWidget *const focus = QApplication::focusWidget();
    qsizetype now = 0;
    for (qsizetype i = 0; i < panes.size(); ++i) {
        if (panes[i] == focus || panes[i]->isAncestorOf(focus))
            now = i + step;
    }
    if (!panes.isEmpty())
        panes[(now + panes.size()) % panes.size()]->setFocus();
}

void CMainFrame::Opened(CDocument &document)
{
    auto &project = static_cast<CResDoc &>(document);
    auto *const child = new CChildFrame(project, *this, bars.Toolbox(), countAlpha);
    child->closed = [this, child](CResDoc &closing) {
        TellUnread(child->Notice().Texts().Unread()); // such as notices of the save before closing
        documents.CloseDocument(&closing);
    };
    notices.Deliver(*child);
    area->addSubWindow(child);
    child->showMaximized();
    project.UpdateAllViews(nullptr);
    child->Tree().setFocus();
    projects.Remember(project.PathName());
    Update();
}

/// Writes the notices of a project that is closed to the output, and shows them in a box if the output is hidden.
void CMainFrame::TellUnread(const QStringList &texts)
{
    for (const QString &text : texts)
        bars.WriteLine(text);
    if (texts.isEmpty() || bars.IsOutputRead())
        return;
    // Later, because the window is still closing.
    QTimer::singleShot(0, this, [this, text = texts.join(QStringLiteral("\n\n"))] {
        turn.AfterCommand([this, text] { boxes.Inform(text); });
    });
}

CMainFrame::Busy::Busy(CMainFrame &mainFrame, quint32 command) : frame(mainFrame)
{
    frame.turn.Begin();
    (void)frame.TakeEdit();
    const QString what = command == IDE_COMMAND_LOAD   ? QStringLiteral("opening a project")
                         : command == IDE_COMMAND_SAVE ? QStringLiteral("saving a project")
                                                       : QStringLiteral("packing a project");
    frame.statusBar()->showMessage(QStringLiteral("A command of the IDE is running: %1...").arg(what));
}

CMainFrame::Busy::~Busy()
{
    frame.statusBar()->clearMessage();
    frame.turn.End();
    frame.indicators.Update(); // the lock keys work even during a command
}

/// Commits what is being edited in place, as leaving it does: the cell of a pane, or a label in a tree or a list. If it
/// is refused, tells the user and returns false.
bool CMainFrame::TakeEdit()
{
    const int before = boxes.Messages();
    for (CChildFrame *child : area->Children()) {
        if (!child->TakePaneEdit())
            return false;
    }
    focusedEdit.EndLabel();
    return boxes.Messages() == before;
}

void CMainFrame::RunAction(ActionId id)
{
    if (turn.IsOn())
        return;
    bars.BeginOutput();
    if (focusedEdit.StateOf(id) || TakeEdit())
        route.Run(id);
}

void CMainFrame::BringToTop()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    if (QWidget *const box = QApplication::activeModalWidget()) {
        box->raise(); // the window waits for it
        box->activateWindow();
    }
}

void CMainFrame::Restore()
{
    place.Restore(env.settings);
    bars.Restore();
}

void CMainFrame::StoreState()
{
    ShowToolbox();
    QList<ProfileEntry> entries = place.State() + bars.State();
    for (CChildFrame *child : area->Children())
        entries += child->State();
    (void)env.settings.WriteAll(entries);
}

/// Asks about unsaved changes. Returns whether all projects may be closed. If so, `told` gets the notices that have
/// been added meanwhile, which are also written to standard error.
bool CMainFrame::MayCloseAll(QStringList &told)
{
    const QStringList before = notices.Unread();
    for (CChildFrame *child : area->Children()) {
        if (!child->MayClose())
            return false;
    }
    told = notices.Unread();
    told.removeIf([&before](const QString &text) { return before.contains(text); });
    for (const QString &text : std::as_const(told))
        std::fprintf(stderr, "%s\n", qUtf8Printable(text)); // the window that shows them is closed
    return true;
}

/// Doesn't show status tips of menu entries while the status bar shows that a command runs.
bool CMainFrame::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride)
        Update(); // on a busy machine a key may come together with the key that has moved the focus
    return (event->type() == QEvent::StatusTip && turn.IsOn()) || QMainWindow::event(event);
}

void CMainFrame::closeEvent(QCloseEvent *event)
{
    if (turn.IsOn() || boxes.IsAnyOpen() || QApplication::activePopupWidget()) {
        event->ignore(); // the command, the box or the menu must end first
        return;
    }
    if (!TakeEdit()) {
        event->ignore();
        return;
    }
    StoreState();
    if (stopWatching)
        stopWatching();
    QStringList told;
    if (!MayCloseAll(told)) {
        event->ignore();
        return;
    }
    if (!told.isEmpty())
        boxes.Inform(told.join(QStringLiteral("\n\n")));
    event->accept();
    for (CChildFrame *child : area->Children()) {
        CResDoc &document = child->Document();
        child->StateIsStored();
        delete child;
        documents.CloseDocument(&document);
    }
}

void CMainFrame::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        bars.RaiseFloating();
}

/// Called when the desktop logs out. Asks about unsaved changes while the user can still cancel the logout.
void CMainFrame::EndSession(QSessionManager &session)
{
    if (!session.allowsInteraction())
        return;
    QStringList told; // not shown in a box, which would delay the desktop
    if (turn.IsOn() || boxes.IsAnyOpen() || !TakeEdit() || !MayCloseAll(told))
        session.cancel();
    session.release();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent *event)
{
    if (!turn.IsOn() && !DroppedFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent *event)
{
    if (turn.IsOn())
        return event->ignore();
    event->acceptProposedAction();
    // Later, because the program that the files come from waits for the end of the drop.
    const QStringList files = DroppedFiles(event->mimeData());
    QTimer::singleShot(0, this, [this, files] { turn.AfterCommand([this, files] { projects.OpenDropped(files); }); });
}
