// SPDX-License-Identifier: MIT
#pragma once

#include "FindingList.h"

#include <optional>

/// What has the focus in a pane of the project.
struct FocusedPlace
{
    QString id;
    bool isCell = false;  ///< one text of the row, or its ID, not the whole resource
    qint32 language = -1; ///< of the text
};

/// The place in a list of findings from which the next and the previous finding are counted. It stays at its finding
/// when the list changes, and where the finding was once that is gone.
class FindingCursor
{
public:
    /// The list must outlive this object.
    explicit FindingCursor(const FindingList &findingList) : list(findingList) {}

    /// Sets the finding that is the present one; -1 for none.
    void Set(int row);
    /// The row of the present finding; -1 if there is none, or if it is gone.
    [[nodiscard]] int Row() const { return isThere ? at : -1; }
    /// Must be called after each change of the list.
    void ListChanged();

    /// Returns the row of the next finding, or, with `step` -1, of the previous one; the list has no end, since the
    /// first follows the last. -1 if the list is empty.
    ///
    /// It is counted from the present finding, but from `focus` if findings are there and the present one isn't: from
    /// the findings of a cell, or to the first finding of a row or resource.
    [[nodiscard]] int Step(int step, const std::optional<FocusedPlace> &focus) const;

private:
    [[nodiscard]] std::optional<int> StepFrom(const FocusedPlace &focus, int step) const;

    const FindingList &list;
    Finding finding; // the present one
    int at = -1;     // its row, or the row that it had
    bool isThere = false;
};
