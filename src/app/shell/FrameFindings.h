// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "FindingCursor.h"
#include "Notifier.h"

#include <QPointer>
#include <QTimer>

#include <functional>

class CChildFrame;
class FindingCountsButton;
class FindingsPane;
class FrameBars;
class IViewHost;
class ProjectArea;
class ProjectCheck;
class QStatusBar;

/// The findings of the active project in the main window: the pane that lists them, the keys that go from one to the
/// next, and the counts in the status bar. While the pane is in use, all open projects are checked.
class FrameFindings : public QObject, public IActionTarget
{
public:
    /// All arguments must outlive this object.
    FrameFindings(FrameBars &frameBars, ProjectArea &projectArea, QStatusBar &bar, IViewHost &viewHost);
    ~FrameFindings() override;

    /// Returns whether a cell or a label is being edited in place.
    std::function<bool()> isEditing;

    /// Follows the active project. Fast enough to be called each time before the program waits for the user.
    void Update();
    /// The counts, for the status bar.
    [[nodiscard]] FindingCountsButton &Counts() { return *counts; }

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

private:
    void ConnectPane();
    /// The check of the active project; null if none is open.
    [[nodiscard]] ProjectCheck *Check() const;
    void Follow(CChildFrame *active);
    /// Takes the findings over later: at once if nothing else is to do, but not too often while the check runs.
    void RefreshLater();
    void Refresh();
    void Use(bool isUsed);
    void Toggle();
    void Step(int step);
    void TakePendingStep();
    void GoTo(int row);
    [[nodiscard]] std::optional<FocusedPlace> Focused() const;
    void Tell(const QString &text);

    FrameBars &bars;
    ProjectArea &area;
    QStatusBar &statusBar;
    IViewHost &host;
    FindingsPane &pane;
    FindingCountsButton *counts;
    QPointer<CChildFrame> child; // the project whose findings are listed
    std::optional<Notifier<>::Listener> changed;
    QTimer refresh;
    bool isStale = true;   // the findings have changed since the last refresh
    bool isOther = true;   // another project has become active since then
    bool hasShown = false; // the bar was hidden before the pane was asked for
    int pending = 0;       // a step that waits for the findings
    qint64 cost = 0;       // of the last refresh, in milliseconds
};
