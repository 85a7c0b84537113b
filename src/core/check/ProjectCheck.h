// SPDX-License-Identifier: MIT
#pragma once

#include "CheckSettings.h"
#include "Finding.h"
#include "Notifier.h"
#include "PictureAlpha.h"
#include "TreeListener.h"

#include <QHash>

#include <vector>

class CResDoc;
class CStringRes;

/// The number of findings of each severity.
struct FindingCounts
{
    int errors = 0;
    int warnings = 0;
    int notes = 0;
    bool operator==(const FindingCounts &) const = default;
};

/// The findings of an open project, which change while the project is edited: those of the rows of the string table at
/// each change of a row, the others when the project is checked again. Does nothing until it is started. Main thread
/// only.
class ProjectCheck : private ITreeListener
{
public:
    /// The document must outlive this object. `countOfAlpha` may be null (CheckInput::countAlpha).
    ProjectCheck(CResDoc &projectDocument, CountAlpha countOfAlpha);
    ~ProjectCheck() = default;
    ProjectCheck(const ProjectCheck &) = delete;
    ProjectCheck &operator=(const ProjectCheck &) = delete;

    /// Starts the check; does nothing if it is on. The findings come with the next steps.
    void Start();
    /// Stops the check and drops all findings.
    void Stop();
    [[nodiscard]] bool IsOn() const { return isOn; }

    /// Checks everything again, with settings that are read again: after a save, a reload or a change of languages. The
    /// present findings stay until there are new ones.
    void CheckAgain();
    /// Does a part of the work that is left. Returns whether there is more. To be called when nothing else is to do.
    bool Step();
    /// Returns whether `Step` has work to do.
    [[nodiscard]] bool IsRunning() const { return isOn && isDue; }

    /// Tells that a row of the string table is new or has changed, given its record in the Description folder.
    void RowChanged(const CStringRes &head);
    /// Tells that a row is about to be removed.
    void RowGoes(const CStringRes &head);

    /// The findings of the text rules for a row of the string table; null if there are none. Valid until the next
    /// change of this object.
    [[nodiscard]] const std::vector<Finding> *OfRow(const CStringRes &head) const;
    /// All findings: those of rows first, in the order of the string table, then the others by file and line. A finding
    /// of a row has an ID and neither file nor line.
    [[nodiscard]] std::vector<Finding> All() const;
    [[nodiscard]] FindingCounts Counts() const { return counts; }
    /// Reports that `Step` has work to do.
    Notifier<> due;
    /// Reports changes of the findings and of what the functions above return.
    Notifier<> changed;

private:
    void TreeGoes(const CResFolder &folder) override;

    CResDoc &document;
    CountAlpha countAlpha;
    bool isOn = false;
    bool isDue = false;
    QHash<const CStringRes *, std::vector<Finding>> ofRows; // only rows with findings
    std::vector<Finding> ofProject;
    FindingCounts counts;
};
