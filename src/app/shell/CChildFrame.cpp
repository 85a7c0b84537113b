// SPDX-License-Identifier: MIT
#include "CChildFrame.h"

#include "Actions.h"
#include "EditOwner.h"
#include "Environment.h"
#include "GoToDialog.h"
#include "LayoutPanes.h"
#include "Panes.h"
#include "Paths.h"
#include "StateOwner.h"
#include "UiIcons.h"
#include "WaitCursor.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

CChildFrame::CChildFrame(CResDoc &projectDocument, IViewHost &shellHost, ToolboxState &sharedToolbox,
                         CountAlpha countAlpha)
    : document(projectDocument), shell(shellHost), toolbox(sharedToolbox), selection(std::in_place, projectDocument),
      check(std::in_place, projectDocument, countAlpha), splitter(new KeyboardSplitter(Qt::Horizontal)),
      right(new QStackedWidget)
{
    setWindowIcon(MakeIcon(UiIcon::Project));
    setAttribute(Qt::WA_DeleteOnClose);
    for (QAction *entry : systemMenu()->actions())
        entry->setShortcuts(QList<QKeySequence>()); // else File, Close has the same keys, and neither works
    document.selection = &*selection;
    tree = new CProjView(document, *selection, *this);
    splitter->addWidget(tree); // shown first, because the contents show what the tree has
    splitter->addWidget(right);
    splitter->RestoreSize(document.env.settings.Int("split1st", "width", 200));
    (void)toolbox.IsShown(document.env.settings); // reads the state now, for all windows
    MakeContent();
    CheckWhenIdle();
    ShowPane(Pane::Default);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        if (now && splitter && splitter->isAncestorOf(now))
            lastFocus = now;
    });
    notice->leavesFocus = [this] { (lastFocus ? lastFocus.data() : tree)->setFocus(); };
    modifiedChanged.emplace(document.modifiedChanged, [this] {
        ShowTitle();
        if (!document.IsModified()) // it has been saved or loaded again
            check->CheckAgain();
    });
    ShowTitle();
}

CChildFrame::~CChildFrame()
{
    LeaveDocument();
}

/// The notice bar is at the top. In the tab order it is before the tree, because it is above it.
void CChildFrame::MakeContent()
{
    auto *const content = new QWidget(this);
    notice = new NoticeBar(content);
    auto *const rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(notice);
    rows->addWidget(splitter, 1);
    content->setFocusProxy(tree);
    setWidget(content);
}

void CChildFrame::CheckWhenIdle()
{
    checkPace.setSingleShot(true);
    connect(&checkPace, &QTimer::timeout, this, [this] {
        // A command of an IDE may be loading the project while it lets events through.
        shell.AfterCommand([child = QPointer(this)] {
            if (child && child->check && child->check->Step())
                child->checkPace.start(0);
        });
    });
    checkDue.emplace(check->due, [this] { checkPace.start(0); });
    check->FollowSettings();
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (check && state == Qt::ApplicationActive)
            check->FollowSettings(); // the user may come from an editor
    });
}

/// Deletes the views, which must go before the document because they read it.
void CChildFrame::LeaveDocument()
{
    if (!splitter)
        return;
    modifiedChanged.reset();
    notice->leavesFocus = nullptr;
    if (!isStored)
        (void)document.env.settings.WriteAll(State());
    delete std::exchange(splitter, nullptr);
    checkPace.stop();
    checkDue.reset();
    check.reset();
    document.selection = nullptr;
    selection.reset();
}

bool CChildFrame::TakePaneEdit()
{
    bool isTaken = true;
    for (const auto &[pane, widget] : panes) {
        if (auto *const owner = dynamic_cast<IEditOwner *>(widget))
            isTaken = owner->TakeEdit() && isTaken;
    }
    return isTaken;
}

QList<ProfileEntry> CChildFrame::State() const
{
    QList<ProfileEntry> entries = toolbox.State();
    for (const auto &[pane, widget] : panes) {
        if (const auto *const owner = dynamic_cast<const IStateOwner *>(widget))
            entries += owner->State();
    }
    entries.append({QStringLiteral("split1st"), QStringLiteral("width"), QString::number(splitter->ChosenSize())});
    return entries;
}

void CChildFrame::ShowTitle()
{
    setWindowTitle(FileTitle(document.PathName()) + QStringLiteral("[*]"));
    setWindowModified(document.IsModified());
}

void CChildFrame::ShowPane(Pane pane)
{
    QWidget *&known = panes[pane];
    if (!known) {
        known = MakePane(pane, {document, *selection, *tree, *this, *check});
        if (!known)
            known = panes[Pane::Default];
        else
            right->addWidget(known);
    }
    right->setCurrentWidget(known);
}

void CChildFrame::ShowLayoutMode(bool isOn)
{
    layoutMode = isOn ? 1 : 0;
    shell.ShowLayoutMode(isOn);
}

IActionTarget *CChildFrame::ActiveView()
{
    QWidget *focus = QApplication::focusWidget();
    if (!focus || !splitter->isAncestorOf(focus))
        focus = lastFocus;
    for (QWidget *widget = focus; widget && widget != splitter; widget = widget->parentWidget()) {
        if (auto *const target = dynamic_cast<IActionTarget *>(widget))
            return target;
    }
    return tree;
}

void CChildFrame::Save()
{
    const WaitCursor cursor;
    (void)document.DoFileSave();
}

void CChildFrame::GoToId()
{
    GoToDialog dialog(document, this);
    const LocatedId *const chosen = shell.Boxes().RunDialog(dialog) ? dialog.Chosen() : nullptr;
    if (!chosen)
        return;
    GoTo(*chosen->folder, *chosen->resource, {});
}

void CChildFrame::GoTo(CResFolder &folder, const CBaseRes &resource, const RowPart &part)
{
    selection->SelectFolder(&folder);
    if (auto *const pane = dynamic_cast<IRowOwner *>(right->currentWidget()))
        pane->GoTo(resource, part);
}

RowPlace CChildFrame::FocusedRow() const
{
    const auto *const pane = dynamic_cast<const IRowOwner *>(right->currentWidget());
    return pane && right->isAncestorOf(QApplication::focusWidget()) ? pane->FocusedRow() : RowPlace();
}

bool CChildFrame::MayClose()
{
    if (!document.IsModified())
        return true;
    const Answer answer =
        shell.Boxes().AskYesNoCancel(QStringLiteral("Save changes to %1?").arg(FileTitle(document.PathName())));
    if (answer == Answer::Yes)
        Save();
    // If the document is still modified after a Yes, it couldn't be saved, and closing would lose the changes.
    return answer == Answer::No || (answer == Answer::Yes && !document.IsModified());
}

void CChildFrame::closeEvent(QCloseEvent *event)
{
    // The window can't be closed during a command of the channel, nor below a dialog, which belongs to a pane. The
    // close button doesn't take the focus, so what is being edited is committed here.
    const bool isBusy = !shell.IsEnabled(ACTION_CLOSE) || QApplication::activeModalWidget();
    if (!HasLeft() && (isBusy || !shell.TakeEdit() || !MayClose())) {
        event->ignore();
        return;
    }
    event->accept();
    if (HasLeft())
        return;
    LeaveDocument();
    QMdiSubWindow::closeEvent(event); // makes the next window maximised if this one was
    if (closed)
        closed(document);
}

std::optional<ActionState> CChildFrame::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_SAVE:
    case ACTION_CLOSE:
    case ACTION_SPLIT:
    case ACTION_GO_TO_ID:
        return ActionState{!HasLeft()};
    default:
        return std::nullopt;
    }
}

void CChildFrame::Run(ActionId id)
{
    switch (id) {
    case ACTION_SAVE:
        tree->SetContextFolder(nullptr); // an action has run since the menu was opened
        Save();
        break;
    case ACTION_CLOSE:
        close();
        break;
    case ACTION_GO_TO_ID:
        GoToId();
        break;
    case ACTION_SPLIT:
        GoToDivider();
        break;
    default:
        break;
    }
}

/// Gives the focus to a divider, which the arrow keys move from then on: to the next one if a divider had the focus
/// before the menu opened.
void CChildFrame::GoToDivider()
{
    QList<QWidget *> dividers = {splitter->handle(1)};
    if (const auto *const group = dynamic_cast<IPaneGroup *>(right->currentWidget()))
        dividers += group->Dividers();
    dividers[(dividers.indexOf(lastFocus) + 1) % dividers.size()]->setFocus();
}

void CChildFrame::AddComponent(const ClassDescriptor &type)
{
    if (auto *const layout = dynamic_cast<LayoutPanes *>(right->currentWidget()))
        layout->AddComponent(type);
}

QList<QWidget *> CChildFrame::Panes() const
{
    QList<QWidget *> all = {tree};
    if (const auto *const group = dynamic_cast<IPaneGroup *>(right->currentWidget()))
        all += group->Parts();
    else
        all += right->currentWidget();
    if (!notice->isHidden())
        all.append(notice);
    return all;
}
