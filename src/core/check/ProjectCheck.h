// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "FileStamps.h"
#include "Notifier.h"
#include "PictureAlpha.h"
#include "ProjectFindings.h"
#include "RowFindings.h"
#include "TreeListener.h"

#include <memory>
#include <optional>

class CBaseRes;
class CheckRun;
class CResDoc;
class CStringRes;
struct CheckBasis;

/// The findings of an open project, which change while the project is edited: those of the rows of the string table at
/// each change of a row, the others when the project is checked again. Does nothing, and needs no memory, until it is
/// started. Changes neither the document nor files. Main thread only.
class ProjectCheck final : private ITreeListener
{
public:
    /// The document must outlive this object. `countOfAlpha` may be null (CheckInput::countAlpha).
    ProjectCheck(CResDoc &projectDocument, CountAlpha countOfAlpha);
    ~ProjectCheck();
    ProjectCheck(const ProjectCheck &) = delete;
    ProjectCheck &operator=(const ProjectCheck &) = delete;

    /// Starts the check; does nothing if it is on. The findings come with the next steps.
    void Start();
    /// Stops the check and drops all findings.
    void Stop();
    [[nodiscard]] bool IsOn() const { return isOn; }
    /// Follows changes of the project's file morvanite-check.ini: checks again, starts the check when there is such a
    /// file, and stops it when there is none any more, unless it was started by `Start`. To be called when the project
    /// is shown and whenever another program may have changed the file.
    void FollowSettings();

    /// Checks everything again, with settings that are read again: after a save, a reload or a change of languages. The
    /// present findings stay until there are new ones.
    void CheckAgain();
    /// Does a part of the work that is left. Returns whether more can be done now. To be called when nothing else is to
    /// do.
    bool Step();
    /// Does all the work that is left, and waits for the files that are read.
    void Complete();
    /// Returns whether the check isn't complete: work is left for `Step`, or files are being read.
    [[nodiscard]] bool IsRunning() const { return isOn && (isDue || run || hasChanged); }

    /// Tells that a row of the string table is new or has changed, given its record in the Description folder. Its
    /// findings are new at once; `changed` follows with the next step.
    void RowChanged(const CStringRes &head);
    /// Tells that a row is about to be removed.
    void RowGoes(const CStringRes &head);

    /// The findings of the text rules for a row of the string table; null if there are none. Valid until the next
    /// change of this object.
    [[nodiscard]] const std::vector<Finding> *OfRow(const CStringRes &head) const { return rows.Of(head); }
    /// All findings about a row of the string table: those of the text rules first. Valid until the next change.
    [[nodiscard]] std::vector<const Finding *> AboutRow(const CStringRes &head) const;
    /// All findings: those of rows first, in the order of the string table, then the others by file and line. A finding
    /// of a row has an ID and neither file nor line.
    [[nodiscard]] std::vector<Finding> All() const;
    [[nodiscard]] FindingCounts Counts() const { return rows.Counts() + others.Counts(); }
    /// Reports that `Step` has work to do.
    Notifier<> due;
    /// Reports changes of the findings and of what the functions above return.
    Notifier<> changed;

private:
    void TreeGoes(const CResFolder &folder) override;
    void TurnOn();
    void TurnOff();
    void Begin();
    void CheckRow(const CStringRes &head);
    void CheckRows();
    void DropId(const NarrowText &id);
    void SetChanged();

    CResDoc &document;
    CountAlpha countAlpha;
    FileStamp settingsStamp; // when the settings were read last; of no file before
    bool isWanted = false;   // from `Start` to `Stop`
    bool isOn = false;
    bool isDue = false;
    bool hasChanged = false; // since `changed` was told last
    std::optional<Notifier<const NarrowText &>::Listener> nameFreed;
    std::unique_ptr<CheckBasis> basis; // of the present findings and of the run; null before the first run
    std::unique_ptr<CheckRun> run;     // the check in progress; null if there is none
    const CBaseRes *nextRow = nullptr; // of the string table, that the run checks next
    RowFindings rows;
    ProjectFindings others;
};
