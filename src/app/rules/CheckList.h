// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <functional>
#include <vector>

/// The rows of a list of check boxes, in the order in which they are shown. It has no widget: a dialog shows it, and a
/// helper fills and reads it.
class CheckList
{
public:
    struct Column
    {
        QString title;
        int width; ///< in pixels
    };
    struct Row
    {
        QStringList texts;
        qint32 data = 0;
        bool checked = false;
    };

    std::vector<Column> columns;
    std::vector<Row> rows;
    /// Called with a row's data when its check changes. Empty while a helper fills the list.
    std::function<void(qint32 data, bool checked)> onCheck;

    /// Checks or unchecks a row. Does nothing if the row already has that state.
    void SetChecked(size_t row, bool checked);
    /// Checks or unchecks every row, from the last to the first.
    void SetAll(bool checked);
    /// Returns whether a sort state (see ListSettings) names a column of this list.
    [[nodiscard]] bool CanSort(int sortState) const;
    /// Sorts the rows by a sort state. The sort is stable. A sort state that names no column of this list moves no row.
    /// Element i of the result is the former number of row i.
    std::vector<int> Sort(int sortState, const std::function<int(qint32 a, qint32 b, int column)> &compare);
};

/// The logic behind a list of check boxes: fills the list, counts what would change, asks the user, and applies the
/// choice. The caller of the dialog owns it.
class IListFltrHelper
{
public:
    /// Adds the columns and rows and sets the checks.
    virtual bool InitList(CheckList &list) = 0;
    /// Called when the user presses OK. Returns true to close the dialog.
    virtual bool Apply(CheckList &list) = 0;
    virtual void OnCheck(qint32 itemData, bool checked) = 0;
    /// Compares the rows with the data `a` and `b` by a column. The result is below 0, 0 or above 0, and below 0 if row
    /// `a` comes first.
    [[nodiscard]] virtual int Compare(qint32 a, qint32 b, int column) const = 0;

protected:
    ~IListFltrHelper() = default;
};
