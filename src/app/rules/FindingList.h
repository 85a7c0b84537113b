// SPDX-License-Identifier: MIT
#pragma once

#include "CheckOutput.h"

#include <QHash>

/// Which findings a list shows.
struct FindingFilter
{
    bool errors = true;
    bool warnings = true;
    bool notes = true;
    QString text = {}; ///< must be in a cell of the row, regardless of case; empty for all

    [[nodiscard]] bool Shows(Severity severity) const
    {
        return severity == Severity::Error ? errors : severity == Severity::Warning ? warnings : notes;
    }
    bool operator==(const FindingFilter &) const = default;
};

/// The findings of a project as the window lists them: filtered, and in an order that the user chooses.
class FindingList
{
public:
    static constexpr int ID_COLUMN = 0;
    static constexpr int LANGUAGE_COLUMN = 1;
    static constexpr int TEXT_COLUMN = 2;
    static constexpr int RULE_COLUMN = 3;
    static constexpr int PLACE_COLUMN = 4;
    static constexpr int COLUMN_COUNT = 5;

    /// Replaces all findings. `checked` names the project and its languages; its own findings are ignored.
    void Set(std::vector<Finding> found, CheckResult checked);
    void SetFilter(const FindingFilter &shown);
    [[nodiscard]] const FindingFilter &Filter() const { return filter; }
    /// A sort state n > 0 is ascending by column n - 1, and -n is descending. The sort is stable; 0 keeps the order of
    /// the check.
    void SortBy(int state);
    [[nodiscard]] int SortState() const { return sortState; }

    /// The number of findings that are shown.
    [[nodiscard]] int RowCount() const { return int(rows.size()); }
    [[nodiscard]] const Finding &At(int row) const { return all[size_t(rows[size_t(row)])]; }
    /// The number of all findings, including those that the filter hides.
    [[nodiscard]] size_t AllCount() const { return all.size(); }
    /// What the findings belong to. Has no findings.
    [[nodiscard]] const CheckResult &Checked() const { return result; }

    [[nodiscard]] QString CellText(int row, int col) const;
    [[nodiscard]] static QString ColumnTitle(int col);

    /// Returns the row of a finding that the list had before its last change. Of equal ones it is that nearest to
    /// `formerRow`. If its text has changed, it is the nearest of the same rule about the same text of a project, or
    /// file. -1 if there is none.
    [[nodiscard]] int RowOf(const Finding &former, int formerRow) const;
    /// Returns the rows, ascending, of those findings that the list still has unchanged.
    [[nodiscard]] std::vector<int> RowsOf(const std::vector<Finding> &former) const;

private:
    void Arrange();
    [[nodiscard]] QString PlaceOf(const Finding &finding) const;
    [[nodiscard]] const QString &RelativeTo(const QString &file) const;
    [[nodiscard]] bool Matches(const Finding &finding) const;
    [[nodiscard]] int Compare(const Finding &a, const Finding &b) const;

    std::vector<Finding> all;
    CheckResult result;
    FindingFilter filter;
    int sortState = 0;
    std::vector<int> rows;                     // those of `all` that are shown, in the order of the list
    mutable QHash<QString, QString> relatives; // relative paths by absolute paths, because they take long to make
};
