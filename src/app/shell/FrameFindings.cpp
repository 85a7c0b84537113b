// SPDX-License-Identifier: MIT
#include "FrameFindings.h"

#include "CSizingControlBar.h"
#include "Environment.h"
#include "FindingCountsButton.h"
#include "FindingTarget.h"
#include "FindingTexts.h"
#include "FindingsPane.h"
#include "FrameBars.h"
#include "Paths.h"
#include "ProjectArea.h"
#include "StringPositions.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace
{

constexpr int MESSAGE_MS = 20'000;
constexpr int PAUSE_MS = 200;     // between two refreshes while the check runs
constexpr qint64 COST_FACTOR = 5; // a refresh takes at most this part of the time

/// Returns what a finding's texts and places refer to.
CheckResult NamesOf(const CResDoc &document)
{
    CheckResult names;
    names.project = document.PathName();
    names.relativeTo = DirectoryOf(names.project);
    if (const CResFolder *const strings = document.root.FindFolder(KIND_STRINGS, 2)) {
        for (const auto &folder : strings->subfolders) {
            CheckedLanguage language;
            language.number = folder->index;
            language.name = folder->title;
            if (language.number >= 0)
                names.languages.push_back(language);
        }
    }
    return names;
}

} // namespace

FrameFindings::FrameFindings(FrameBars &frameBars, ProjectArea &projectArea, QStatusBar &bar, IViewHost &viewHost)
    : bars(frameBars), area(projectArea), statusBar(bar), host(viewHost), pane(frameBars.Findings()),
      counts(new FindingCountsButton(&bar))
{
    refresh.setSingleShot(true);
    connect(&refresh, &QTimer::timeout, this, [this] {
        if (pane.isVisible() || pending != 0)
            Refresh();
        TakePendingStep();
    });
    connect(counts, &QToolButton::clicked, this, [this] {
        bars.ShowFindings(true);
        pane.setFocus();
    });
    ConnectPane();
}

FrameFindings::~FrameFindings()
{
    pane.shown = nullptr; // the pane may live longer
}

void FrameFindings::ConnectPane()
{
    pane.shown = [this] { RefreshLater(); };
    pane.runAction = [this](ActionId id) { host.RunAction(id); };
    pane.isEnabled = [this](ActionId id) { return host.IsEnabled(id); };
    pane.locate = [this](std::vector<Finding> &findings) {
        if (Check())
            PlaceInStringFile(child->Document(), findings);
    };
}

ProjectCheck *FrameFindings::Check() const
{
    return child && !child->HasLeft() ? &child->Check() : nullptr;
}

void FrameFindings::Update()
{
    if (CChildFrame *const active = area.ActiveChild(); active != child)
        Follow(active);
    const ProjectCheck *const check = Check();
    const bool isOn = check && check->IsOn();
    counts->Show(isOn ? std::optional(check->Counts()) : std::nullopt, isOn && check->IsRunning());
    if (pending != 0 && (!isOn || !check->IsRunning()))
        RefreshLater(); // the check may end without a change of the findings
    if (pane.isVisible())
        pane.ShowState(!isOn ? CheckState::NoProject : check->IsRunning() ? CheckState::Checking : CheckState::Checked);
}

void FrameFindings::Follow(CChildFrame *active)
{
    changed.reset();
    child = active;
    pending = 0;
    isOther = true;
    if (active) {
        changed.emplace(active->Check().changed, [this] {
            isStale = true;
            RefreshLater();
        });
        if (bars.HasFindings())
            active->Check().Start();
    }
    isStale = true;
    RefreshLater();
}

void FrameFindings::RefreshLater()
{
    const ProjectCheck *const check = Check();
    const bool isRunning = check && check->IsRunning() && !isOther;
    if (!refresh.isActive())
        refresh.start(isRunning ? int(qMax<qint64>(PAUSE_MS, COST_FACTOR * cost)) : 0);
    else if (!isRunning)
        refresh.start(0);
}

void FrameFindings::Refresh()
{
    if (!isStale)
        return;
    isStale = false;
    QElapsedTimer timer;
    timer.start();
    const ProjectCheck *const check = Check();
    pane.Show(check ? check->All() : std::vector<Finding>(), check ? NamesOf(child->Document()) : CheckResult(),
              check ? check->Counts() : FindingCounts(), std::exchange(isOther, false));
    cost = timer.elapsed();
}

std::optional<ActionState> FrameFindings::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_FINDINGS:
        return ActionState{true, bars.HasFindings() && bars.IsOutputShown()};
    case ACTION_NEXT_FINDING:
    case ACTION_PREVIOUS_FINDING:
    case ACTION_CHECK_AGAIN:
        return ActionState{Check() != nullptr};
    case ACTION_GO_TO_FINDING:
        return ActionState{Check() && pane.Current() >= 0};
    default:
        return std::nullopt;
    }
}

void FrameFindings::Run(ActionId id)
{
    switch (id) {
    case ACTION_FINDINGS:
        return Toggle();
    case ACTION_NEXT_FINDING:
        return Step(1);
    case ACTION_PREVIOUS_FINDING:
        return Step(-1);
    case ACTION_GO_TO_FINDING:
        return GoTo(pane.Current());
    case ACTION_CHECK_AGAIN:
        return Check()->CheckAgain();
    default:
        return;
    }
}

/// Puts the pane into use, with the check of all open projects, or takes it out of use. Then only projects with
/// settings of the check are still checked, as before.
void FrameFindings::Use(bool isUsed)
{
    pending = 0;
    if (isUsed) {
        hasShown = !bars.IsOutputShown();
        bars.ShowFindings(true);
    } else {
        pane.Reset();
        bars.DropFindings();
        if (hasShown)
            bars.ShowOutput(false);
    }
    for (CChildFrame *each : area.Children()) {
        if (isUsed)
            each->Check().Start();
        else if (!QFileInfo::exists(CheckSettingsPath(DirectoryOf(each->Document().PathName()))))
            each->Check().Stop();
    }
}

void FrameFindings::Toggle()
{
    if (bars.HasFindings() && bars.IsOutputShown())
        return Use(false);
    if (bars.HasFindings())
        return bars.ShowFindings(true);
    Use(true);
}

/// Returns what has the focus in a pane of the project.
std::optional<FocusedPlace> FrameFindings::Focused() const
{
    const RowPlace place = child->FocusedRow();
    if (!place.resource)
        return std::nullopt;
    const QString id = child->Document().env.NarrowToWide(place.resource->Id()->name);
    return FocusedPlace{id, place.part.isCell, place.part.language};
}

void FrameFindings::Step(int step)
{
    if (!bars.HasFindings())
        Use(true);
    isStale = isStale || Check()->IsRunning(); // an edit may just have changed findings
    Refresh();
    if (pane.List().RowCount() == 0 && Check()->IsRunning()) {
        pending = step;
        return Tell(u"Checking\u2026"_s);
    }
    const int row = pane.Step(step, Focused());
    if (row < 0)
        return Tell(EmptyListText(CheckState::Checked, pane.List()));
    GoTo(row);
}

/// Makes a step that had to wait for findings. Not while the user edits something, which the step would commit, nor
/// during a command of an IDE, nor below a box or a menu, which may be about what is selected now.
void FrameFindings::TakePendingStep()
{
    const ProjectCheck *const check = Check();
    if (pending == 0 || !check || (check->IsRunning() && pane.List().RowCount() == 0))
        return;
    const int step = std::exchange(pending, 0);
    if (!host.IsEnabled(ACTION_NEXT_FINDING) || QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return;
    if (isEditing && isEditing())
        return Tell(CountsText(check->Counts()));
    Step(step);
}

void FrameFindings::GoTo(int row)
{
    pane.Select(row);
    const Finding &finding = pane.List().At(row);
    const FindingTarget target = TargetOf(child->Document(), finding);
    if (!target.resource)
        return Tell(finding.id.isEmpty() ? StepText(pane.List(), row, true) : GoneText(pane.List(), row));
    area.Activate(child->Document());
    child->GoTo(*target.folder, *target.resource, {target.language >= 0, target.language, target.component});
    Tell(StepText(pane.List(), row, false));
}

void FrameFindings::Tell(const QString &text)
{
    statusBar.showMessage(text, MESSAGE_MS);
}
