#pragma once

#include "CProjView.h"
#include "FrameState.h"
#include "KeyboardSplitter.h"
#include "NoticeBar.h"

#include <QMdiSubWindow>
#include <QPointer>

#include <map>
#include <optional>

struct ClassDescriptor;

/// The window of one project: the project tree on the left, the pane of the selected folder on the right, and above
/// them a bar for notices.
///
/// A pane is made when it is first needed, and then only swapped.
class CChildFrame : public QMdiSubWindow, public IViewHost, public IActionTarget
{
public:
    /// `shellHost` does for the views what isn't this window's to do.
    CChildFrame(CResDoc &projectDocument, IViewHost &shellHost, ToolboxState &sharedToolbox);
    ~CChildFrame() override;

    [[nodiscard]] CResDoc &Document() const { return document; }
    [[nodiscard]] CProjView &Tree() { return *tree; }
    /// Only before it has let go of its document.
    [[nodiscard]] Selection &Selected() { return *selection; }
    /// The zoom of the preview; empty while it isn't in sight.
    [[nodiscard]] const QString &Zoom() const { return shownZoom; }
    [[nodiscard]] NoticeBar &Notice() { return *notice; }

    /// The view that takes actions: the one with the focus, else the one that had it last.
    [[nodiscard]] IActionTarget *ActiveView();

    /// Asks about changes that aren't saved. False when the window has to stay: the user said so, or saving failed.
    [[nodiscard]] bool MayClose();
    /// Told once the window has let go of its document, which can be closed then.
    std::function<void(CResDoc &)> closed;
    /// The document is gone, or about to go.
    [[nodiscard]] bool HasLeft() const { return !splitter; }

    /// Commits what is being edited in place in a pane. False when it is refused, after a message to the user.
    [[nodiscard]] bool TakePaneEdit();

    /// What the settings are to remember of this window, which stores it when it ends. Only before it has let go of its
    /// document.
    [[nodiscard]] QList<ProfileEntry> State() const;
    /// It has been stored already.
    void StateIsStored() { isStored = true; }

    /// Not 0 while a layout is shown.
    int layoutMode = 0;
    /// The Toolbox offers a class: makes a component of it in the layout that is shown. Nothing while none is.
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

    /// The tree, the panes right of it, and the notice while one is shown.
    [[nodiscard]] QList<QWidget *> Panes() const;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void MakeContent();
    void ShowTitle();
    void LeaveDocument();
    void Save();
    void GoToId();
    void GoToDivider();

    CResDoc &document;
    IViewHost &shell;
    ToolboxState &toolbox;
    std::optional<Selection> selection; // until the document has been left
    NoticeBar *notice;
    KeyboardSplitter *splitter; // null once the document has been left
    CProjView *tree;
    std::map<Pane, QWidget *> panes; // those that were made, owned by the splitter's right side
    class QStackedWidget *right;
    QPointer<QWidget> lastFocus;
    std::optional<Notifier<>::Listener> modifiedChanged;
    QString shownZoom;
    bool isStored = false;
};
