#include "CMainFrame.h"

#include "Actions.h"
#include "CInfoPane.h"
#include "CSizingControlBar.h"
#include "Cascade.h"
#include "Environment.h"
#include "IdeCommandHandler.h"
#include "Paths.h"
#include "ProjectArea.h"
#include "StatusPane.h"
#include "UiIcons.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QSessionManager>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>

#include <algorithm>
#include <cstdio>
#include <utility>

CMainFrame::CMainFrame(Environment &environment, ProcessTables &processTables, CDocManager &documentManager)
    : env(environment), tables(processTables), documents(documentManager), area(new ProjectArea(this))
{
    setWindowTitle(QStringLiteral("Morvanite"));
    setWindowIcon(MakeIcon(UiIcon::Application));
    setAcceptDrops(true);
    setDockNestingEnabled(true);
    if (const QScreen *own = screen())
        place.SetSmallest(SmallestFrame(own->availableSize()));
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(area);
    route.targets = [this] { return Targets(); };
    boxes.unseenOutput = [this] { return isVisible() && !outputBar->isHidden() ? QString() : told.Text(); };
    recentFiles.Read(env.settings);
    MakeActions();
    MakeToolBar();
    MakeBars();
    status = new StatusPane(statusBar());
    statusBar()->addWidget(status, 1);
    ShowMenus();
    documents.opened = [this](CDocument &document) { Opened(document); };
    documents.foundOpen = [this](const CDocument &document) { Activate(document); };
    connect(qApp, &QGuiApplication::commitDataRequest, this, &CMainFrame::EndSession, Qt::DirectConnection);
    // Whatever has happened, what menus and tool bar show is right before the program waits for the user again.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] { UpdateActions(); });
}

CMainFrame::~CMainFrame()
{
    documents.opened = nullptr;
    documents.foundOpen = nullptr;
    disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
    for (CChildFrame *child : Children())
        delete child; // before the documents that its views look at
}

std::vector<IActionTarget *> CMainFrame::Targets() const
{
    auto *const self = const_cast<CMainFrame *>(this);
    const bool isInOutput = focusedEdit.Focus() == output;
    CChildFrame *const child = ActiveChild();
    return {isInOutput ? static_cast<IActionTarget *>(output) : nullptr, &self->focusedEdit,
            child ? child->ActiveView() : nullptr, child, self};
}

/// Names the active project; as the window of a maximised one would, which keeps the two from fighting.
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
        setWindowModified(isModified); // which is an event each time
}

std::optional<ActionState> CMainFrame::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_OPEN:
    case ACTION_EXIT:
    case ACTION_ABOUT:
    case ACTION_NEW_FILE:
        return ActionState{};
    case ACTION_TOOLBAR:
        return ActionState{true, !toolBar->isHidden()};
    case ACTION_STATUS_BAR:
        return ActionState{true, !statusBar()->isHidden()};
    case ACTION_OUTPUT:
        return ActionState{true, !outputBar->isHidden()};
    case ACTION_TOOLBOX:
        return ActionState{ActiveChild() && ActiveChild()->layoutMode != 0, !toolboxBar->isHidden()};
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
        return ChooseProject();
    case ACTION_EXIT:
        close();
        return;
    case ACTION_ABOUT:
        return boxes.ShowAbout();
    case ACTION_TOOLBAR:
        return toolBar->setVisible(toolBar->isHidden());
    case ACTION_STATUS_BAR:
        return statusBar()->setVisible(statusBar()->isHidden());
    case ACTION_OUTPUT:
        return ShowOutput(outputBar->isHidden());
    case ACTION_TOOLBOX:
        return ToggleToolbox();
    case ACTION_NEXT_PANE:
        return GoToPane(1);
    case ACTION_PREVIOUS_PANE:
        return GoToPane(-1);
    case ACTION_CASCADE:
    case ACTION_TILE:
        return Arrange(id);
    case ACTION_ARRANGE_ICONS:
        for (CChildFrame *child : Children()) {
            if (child->isMinimized())
                child->showMinimized(); // which finds it its place along the bottom again
        }
        return;
    default:
        return;
    }
}

void CMainFrame::Arrange(ActionId id)
{
    const QPointer<QWidget> focus = focusedEdit.Focus();
    if (id == ACTION_CASCADE)
        Cascade();
    else
        area->tileSubWindows();
    if (focus)
        focus->setFocus(); // which a window that changes its form gives away
}

void CMainFrame::Cascade()
{
    QList<QMdiSubWindow *> windows = area->subWindowList(QMdiArea::StackingOrder);
    windows.removeIf([](const QMdiSubWindow *window) { return window->isMinimized() || window->isHidden(); });
    QSize smallest;
    for (QMdiSubWindow *window : windows) {
        window->showNormal();
        smallest = smallest.expandedTo(window->minimumSizeHint());
    }
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this) +
                      style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, this);
    const QList<QRect> places = CascadePlaces(int(windows.size()), area->viewport()->size(), title, smallest);
    for (qsizetype i = 0; i < windows.size(); ++i)
        windows[i]->setGeometry(places[i]);
}

/// The panes are those of the active project, and the output while it is in sight.
void CMainFrame::GoToPane(int step)
{
    CChildFrame *const child = ActiveChild();
    QList<QWidget *> panes = child ? child->Panes() : QList<QWidget *>();
    if (!outputBar->isHidden())
        panes.append(output);
    const QWidget *const focus = QApplication::focusWidget();
    qsizetype now = 0;
    for (qsizetype i = 0; i < panes.size(); ++i) {
        if (panes[i] == focus || panes[i]->isAncestorOf(focus))
            now = i + step;
    }
    if (!panes.isEmpty())
        panes[(now + panes.size()) % panes.size()]->setFocus();
}

QList<CChildFrame *> CMainFrame::Children() const
{
    QList<CChildFrame *> children;
    for (QMdiSubWindow *window : area->subWindowList()) {
        auto *const child = static_cast<CChildFrame *>(window);
        if (!child->HasLeft())
            children.append(child);
    }
    return children;
}

CChildFrame *CMainFrame::ActiveChild() const
{
    // The one that was active last: also while another program's window is active, and when the main window has been
    // minimised and is back so soon that the area takes no window for the current one.
    const QList<QMdiSubWindow *> windows = area->subWindowList(QMdiArea::ActivationHistoryOrder);
    const auto left = [](QMdiSubWindow *window) { return static_cast<CChildFrame *>(window)->HasLeft(); };
    const auto last = std::find_if_not(windows.crbegin(), windows.crend(), left);
    return last != windows.crend() ? static_cast<CChildFrame *>(*last) : nullptr;
}

void CMainFrame::Opened(CDocument &document)
{
    auto &project = static_cast<CResDoc &>(document);
    auto *const child = new CChildFrame(project, *this, toolboxState);
    child->closed = [this, child](CResDoc &closing) {
        TellUnread(child->Notice().Texts().Unread()); // such as that of the save before closing
        documents.CloseDocument(&closing);
    };
    for (const QString &text : waitingNotices[&project])
        child->Notice().Add(text);
    waitingNotices.clear();
    area->addSubWindow(child);
    child->showMaximized();
    project.UpdateAllViews(nullptr);
    child->Tree().setFocus();
    FillToolbox();
    recentFiles.Add(project.PathName(), env.settings);
    ShowRecentFiles();
    UpdateActions();
}

void CMainFrame::Notify(const CResDoc &document, const QString &text)
{
    for (CChildFrame *child : Children()) {
        if (&child->Document() == &document)
            return child->Notice().Add(text);
    }
    waitingNotices[&document].append(text);
}

/// Tells the notices of a project that is closed in the output, and in a box while that is hidden.
void CMainFrame::TellUnread(const QStringList &texts)
{
    for (const QString &text : texts)
        WriteLine(text);
    if (texts.isEmpty() || !outputBar->isHidden())
        return;
    // Not here, where the window is still closing.
    QTimer::singleShot(0, this, [this, text = texts.join(QStringLiteral("\n\n"))] {
        turn.AfterCommand([this, text] { boxes.Inform(text); });
    });
}

void CMainFrame::Activate(const CDocument &document)
{
    for (CChildFrame *child : Children()) {
        if (&child->Document() != &document)
            continue;
        if (child->isMinimized())
            child->showNormal();
        area->setActiveSubWindow(child);
    }
}

CMainFrame::Busy::Busy(CMainFrame &mainFrame, quint32 command) : frame(mainFrame)
{
    frame.turn.Begin();
    (void)frame.TakeLabel();
    const QString what = command == IDE_COMMAND_LOAD   ? QStringLiteral("opening a project")
                         : command == IDE_COMMAND_SAVE ? QStringLiteral("saving a project")
                                                       : QStringLiteral("packing a project");
    frame.statusBar()->showMessage(QStringLiteral("The IDE's command is running: %1...").arg(what));
}

CMainFrame::Busy::~Busy()
{
    frame.statusBar()->clearMessage();
    frame.turn.End();
    frame.indicators.Update(); // the keys of the locks work all the same
}

/// Takes the label that is being edited in a tree or a list, as leaving it does. False when it was refused, which the
/// user is told.
bool CMainFrame::TakeLabel()
{
    const int before = boxes.Messages();
    QWidget *const edit = focusedEdit.Control();
    QWidget *const viewport = edit ? edit->parentWidget() : nullptr;
    // Not by moving the focus: the menus may have it, or another program.
    if (auto *const view = qobject_cast<QAbstractItemView *>(viewport ? viewport->parentWidget() : nullptr)) {
        Q_EMIT view->itemDelegate()->commitData(edit);
        Q_EMIT view->itemDelegate()->closeEditor(edit);
    }
    return boxes.Messages() == before;
}

void CMainFrame::RunAction(ActionId id)
{
    if (turn.IsOn())
        return;
    told.Clear();
    if (focusedEdit.StateOf(id) || TakeLabel())
        route.Run(id);
}

void CMainFrame::ChooseProject()
{
    const CChildFrame *const child = ActiveChild();
    const QString last = child ? child->Document().PathName() : recentFiles.Paths().value(0);
    const QString path = boxes.ChooseProject(last.isEmpty() ? QString() : DirectoryOf(last));
    if (!path.isEmpty())
        (void)OpenProject(CanonicalPath(path));
}

bool CMainFrame::OpenProject(const QString &path)
{
    const WaitCursor cursor;
    told.Clear();
    return documents.OpenDocumentFile(path) != nullptr;
}

void CMainFrame::OpenRecent(int index)
{
    const QString path = recentFiles.Paths().value(index);
    if (path.isEmpty() || OpenProject(path))
        return;
    recentFiles.Remove(path, env.settings);
    ShowRecentFiles();
}

void CMainFrame::BringToTop()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    if (QWidget *const box = QApplication::activeModalWidget()) {
        box->raise(); // it is what the window waits for
        box->activateWindow();
    }
}

QStringList CMainFrame::UnreadNotices() const
{
    QStringList unread;
    for (CChildFrame *child : Children())
        unread += child->Notice().Texts().Unread();
    return unread;
}

bool CMainFrame::MayCloseAll(QStringList &notices)
{
    const QStringList before = UnreadNotices();
    for (CChildFrame *child : Children()) {
        if (!child->MayClose())
            return false;
    }
    notices = UnreadNotices();
    notices.removeIf([&before](const QString &text) { return before.contains(text); });
    for (const QString &text : std::as_const(notices))
        std::fprintf(stderr, "%s\n", qUtf8Printable(text)); // the window that shows them goes
    return true;
}

/// What a menu entry does is no matter while the status bar tells of a command.
bool CMainFrame::event(QEvent *event)
{
    return (event->type() == QEvent::StatusTip && turn.IsOn()) || QMainWindow::event(event);
}

void CMainFrame::closeEvent(QCloseEvent *event)
{
    if (turn.IsOn() || boxes.IsAnyOpen() || QApplication::activePopupWidget()) {
        event->ignore(); // the command, the box or the menu has to end first
        return;
    }
    if (!TakeLabel()) {
        event->ignore();
        return;
    }
    StoreState();
    if (stopWatching)
        stopWatching();
    QStringList notices;
    if (!MayCloseAll(notices)) {
        event->ignore();
        return;
    }
    if (!notices.isEmpty())
        boxes.Inform(notices.join(QStringLiteral("\n\n")));
    event->accept();
    for (CChildFrame *child : Children()) {
        CResDoc &document = child->Document();
        child->StateIsStored();
        delete child;
        documents.CloseDocument(&document);
    }
}

/// The desktop logs out: what isn't saved is asked about while the user can still stay.
void CMainFrame::EndSession(QSessionManager &session)
{
    if (!session.allowsInteraction())
        return;
    QStringList notices; // without a box, which would hold up the desktop
    if (turn.IsOn() || boxes.IsAnyOpen() || !TakeLabel() || !MayCloseAll(notices))
        session.cancel();
    session.release();
}

namespace
{

QStringList DroppedFiles(const QMimeData *data)
{
    QStringList files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

} // namespace

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
    // Not within the drop: whoever is dragged from waits for its end.
    const QStringList files = DroppedFiles(event->mimeData());
    QTimer::singleShot(0, this, [this, files] { turn.AfterCommand([this, files] { OpenDropped(files); }); });
}

void CMainFrame::OpenDropped(const QStringList &files)
{
    constexpr qsizetype MOST_NAMED = 10;
    QStringList others;
    for (const QString &file : files) {
        if (FileExtension(file).compare(u"vcproj", Qt::CaseInsensitive) == 0)
            (void)OpenProject(CanonicalPath(file));
        else
            others.append(file);
    }
    if (others.size() > MOST_NAMED)
        others = others.first(MOST_NAMED) << QStringLiteral("...");
    if (!others.isEmpty())
        boxes.MessageBox((others.size() == 1
                              ? QStringLiteral("%1 is no project. Drop the project's .vcproj file here.")
                              : QStringLiteral("These are no projects. Drop a project's .vcproj file here.\n\n%1"))
                             .arg(others.join(u'\n')));
}
