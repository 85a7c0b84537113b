// SPDX-License-Identifier: MIT
#pragma once

#include "CProjView.h"
#include "FrameState.h"
#include "KeyboardSplitter.h"
#include "NoticeBar.h"
#include "ProjectCheck.h"
#include "RowOwner.h"

#include <QMdiSubWindow>
#include <QPointer>
#include <QTimer>

#include <map>
#include <optional>

struct ClassDescriptor;

/// The window of a project: the project tree on the left, the pane of the selected folder on the right, and a bar for
/// notices above them.
///
/// A pane is made when it is first needed, and kept after that.
class CChildFrame : public QMdiSubWindow, public IViewHost, public IActionTarget
{
public:
    /// `shellHost` provides the services for views that this window doesn't provide itself.
    /// `countAlpha` may be null (CheckInput::countAlpha). The others must outlive the window.
    CChildFrame(CResDoc &projectDocument, IViewHost &shellHost, ToolboxState &sharedToolbox, CountAlpha countAlpha);
    ~CChildFrame() override;

    [[nodiscard]] CResDoc &Document() const { return document; }
    [[nodiscard]] CProjView &Tree() { return *tree; }
    /// Must not be called after the window has left its document.
    [[nodiscard]] Selection &Selected() { return *selection; }
    /// The zoom of the preview; empty while the preview isn't shown.
    [[nodiscard]] const QString &Zoom() const { return shownZoom; }
    [[nodiscard]] NoticeBar &Notice() { return *notice; }
    /// The findings of the project. Must not be called after the window has left its document.
    [[nodiscard]] ProjectCheck &Check() { return *check; }

    /// The view that receives actions: the one with the focus, otherwise the one that had it last.
    [[nodiscard]] IActionTarget *ActiveView();

    /// Asks about unsaved changes. Returns false if the window must not be closed, because the user cancelled or saving
    /// failed.
    [[nodiscard]] bool MayClose();
    /// Called once the window has left its document, which can be closed then.
    std::function<void(CResDoc &)> closed;
    /// Returns whether the window has left its document, which is closed or about to be closed.
    [[nodiscard]] bool HasLeft() const { return !splitter; }

    /// Selects a folder, and in its pane the row of a resource, and gives the focus to a part of that row.
    void GoTo(CResFolder &folder, const CBaseRes &resource, const RowPart &part);
    /// Returns the part of a row that has the focus. There is none while the focus isn't in a pane with rows.
    [[nodiscard]] RowPlace FocusedRow() const;

    /// Commits what is being edited in place in a pane. If it is refused, tells the user and returns false.
    [[nodiscard]] bool TakePaneEdit();

    /// The entries of this window to store in the settings. The window stores them itself when it closes. Must not be
    /// called after the window has left its document.
    [[nodiscard]] QList<ProfileEntry> State() const;
    /// Tells the window that its state has been stored already.
    void StateIsStored() { isStored = true; }

    /// Nonzero while a layout is shown.
    int layoutMode = 0;
    /// Makes a component of a class that the Toolbox offers, in the shown layout. Does nothing while no layout is
    /// shown.
    void AddComponent(const ClassDescriptor &type);

    // IViewHost
    [[nodiscard]] IViewBoxes &Boxes() override { return shell.Boxes(); }
    void ShowPane(Pane pane) override;
    void RunAction(ActionId id) override { shell.RunAction(id); }
    [[nodiscard]] bool TakeEdit() override { return shell.TakeEdit(); }
    void AfterCommand(std::function<void()> call) override { shell.AfterCommand(std::move(call)); }
    [[nodiscard]] bool IsEnabled(ActionId id) const override { return shell.IsEnabled(id); }
    void ShowLayoutMode(bool isOn) override;
    void ShowZoom(const QString &zoom) override { shownZoom = zoom; }

    // IActionTarget
    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

    /// The tree, the panes to the right of it, and the notice bar while a notice is shown.
    [[nodiscard]] QList<QWidget *> Panes() const;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void MakeContent();
    void ShowTitle();
    void LeaveDocument();
    void CheckWhenIdle();
    void Save();
    void GoToId();
    void GoToDivider();

    CResDoc &document;
    IViewHost &shell;
    ToolboxState &toolbox;
    std::optional<Selection> selection; // exists until the window has left its document
    std::optional<ProjectCheck> check;  // likewise
    QTimer checkPace;                   // expires when nothing else is to do
    std::optional<Notifier<>::Listener> checkDue;
    NoticeBar *notice;
    KeyboardSplitter *splitter; // null once the window has left its document
    CProjView *tree;
    std::map<Pane, QWidget *> panes; // the panes made so far, owned by the splitter's right side
    class QStackedWidget *right;
    QPointer<QWidget> lastFocus;
    std::optional<Notifier<>::Listener> modifiedChanged;
    QString shownZoom;
    bool isStored = false;
};
