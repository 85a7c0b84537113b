// SPDX-License-Identifier: MIT
#include "ProjectCheck.h"

#include "CResDoc.h"
#include "CheckRun.h"
#include "Paths.h"
#include "StringRows.h"

#include <chrono>

namespace
{

constexpr std::chrono::milliseconds STEP(5); // for rows; a user notices 100 ms
constexpr int ROWS_AT_ONCE = 32;             // between looks at the clock

} // namespace

ProjectCheck::ProjectCheck(CResDoc &projectDocument, CountAlpha countOfAlpha)
    : ITreeListener(projectDocument), document(projectDocument), countAlpha(countOfAlpha)
{
}

ProjectCheck::~ProjectCheck() = default;

void ProjectCheck::Start()
{
    isWanted = true;
    if (!isOn)
        TurnOn();
}

void ProjectCheck::Stop()
{
    isWanted = false;
    TurnOff();
}

void ProjectCheck::TurnOn()
{
    isOn = hasChanged = true;
    nameFreed.emplace(document.ids.nameFreed, [this](const NarrowText &id) { DropId(id); });
    CheckAgain();
}

void ProjectCheck::TurnOff()
{
    isOn = isDue = hasChanged = false;
    nameFreed.reset();
    run.reset();
    basis.reset();
    rows.Clear();
    others.Clear();
    changed.Tell();
}

void ProjectCheck::FollowSettings()
{
    const FileStamp now = FileStamp::Of(CheckSettingsPath(DirectoryOf(document.PathName())));
    if (now == settingsStamp)
        return;
    settingsStamp = now;
    if (!isWanted && !now.IsThere())
        TurnOff();
    else if (isOn)
        CheckAgain();
    else
        TurnOn();
}

void ProjectCheck::CheckAgain()
{
    if (!isOn)
        return;
    isDue = true;
    due.Tell();
}

/// Begins to check everything, in place of a check in progress.
void ProjectCheck::Begin()
{
    isDue = false;
    run.reset();
    const FileStamp now = FileStamp::Of(CheckSettingsPath(DirectoryOf(document.PathName())));
    if (now.IsThere() == settingsStamp.IsThere()) // otherwise `FollowSettings` must see it
        settingsStamp = now;
    basis = std::make_unique<CheckBasis>(document);
    run = std::make_unique<CheckRun>(document, *basis, countAlpha, [this] { due.Tell(); });
    const CResFolder *const strings = document.root.FindFolder(KIND_STRINGS, 2);
    nextRow = strings && !strings->subfolders.empty() ? strings->subfolders.front()->resources.First() : nullptr;
    if (!nextRow)
        rows.Clear();
}

bool ProjectCheck::Step()
{
    bool hasMore = false;
    if (isDue) {
        Begin();
        hasMore = run->Step(); // its thread reads files while the rows are checked
    } else if (run && nextRow) {
        CheckRows();
        hasMore = true;
    } else if (run && run->IsComplete()) {
        others.Set(std::move(run->Findings()), document);
        run.reset();
        hasChanged = true;
    } else if (run) {
        hasMore = run->Step() || run->IsComplete();
    }
    if (std::exchange(hasChanged, false)) {
        changed.Tell();
        return isDue || hasMore; // a listener may have stopped the check or asked for another one
    }
    return hasMore;
}

void ProjectCheck::Complete()
{
    while (IsRunning()) {
        if (!Step() && run)
            run->WaitForFiles();
    }
}

void ProjectCheck::CheckRow(const CStringRes &head)
{
    std::vector<Finding> found;
    RuleReport report(*basis->settings, [&found](Finding &&finding) { found.push_back(std::move(finding)); });
    basis->rows.Check(head, report);
    hasChanged = rows.Set(head, std::move(found)) || hasChanged;
}

/// Checks the next rows, as many as a step has time for. The findings are reported when all rows are checked.
void ProjectCheck::CheckRows()
{
    const bool hadChanged = hasChanged;
    const auto end = std::chrono::steady_clock::now() + STEP;
    do {
        for (int n = 0; nextRow && n < ROWS_AT_ONCE; ++n) {
            CheckRow(static_cast<const CStringRes &>(*nextRow));
            nextRow = nextRow->NextInFolder();
        }
    } while (nextRow && std::chrono::steady_clock::now() < end);
    hasChanged = hadChanged || !nextRow;
}

void ProjectCheck::RowChanged(const CStringRes &head)
{
    if (!basis)
        return; // the check is off, or checks the row later
    CheckRow(head);
    SetChanged();
}

void ProjectCheck::RowGoes(const CStringRes &head)
{
    if (nextRow == &head)
        nextRow = head.NextInFolder();
    if (rows.Set(head, {}))
        SetChanged();
}

void ProjectCheck::DropId(const NarrowText &id)
{
    if (!others.Drop(id))
        return;
    SetChanged();
    CheckAgain(); // the ID may have been renamed, and so have its faults
}

void ProjectCheck::SetChanged()
{
    hasChanged = true;
    due.Tell();
}

std::vector<const Finding *> ProjectCheck::AboutRow(const CStringRes &head) const
{
    std::vector<const Finding *> found;
    if (const std::vector<Finding> *const ofRow = rows.Of(head)) {
        for (const Finding &finding : *ofRow)
            found.push_back(&finding);
    }
    for (const Finding *finding : others.About(head.Id()->name))
        found.push_back(finding);
    return found;
}

std::vector<Finding> ProjectCheck::All() const
{
    std::vector<Finding> all;
    if (!rows.AreEmpty()) {
        for (const StringRow &row : StringRowsOf(document)) {
            if (const auto *const ofRow = rows.Of(*row.head))
                all.insert(all.end(), ofRow->begin(), ofRow->end());
        }
    }
    const std::vector<Finding> rest = others.All();
    all.insert(all.end(), rest.begin(), rest.end());
    return all;
}

/// Drops the pointers to rows. Other parts of the tree are only checked again: nothing here points to them.
void ProjectCheck::TreeGoes(const CResFolder &folder)
{
    if (!isOn)
        return;
    run.reset();
    if ((folder.kind & KIND_STRINGS) != 0) { // or the root, whose kind has all of these bits
        basis.reset();
        nextRow = nullptr;
        rows.Clear();
        hasChanged = true;
    }
    CheckAgain();
}
