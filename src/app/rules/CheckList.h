#pragma once

#include <QStringList>

#include <functional>
#include <vector>

/// The rows of a list of check boxes, in the order in which they are shown. Without a widget: a dialog shows it, a
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
    /// Told when a row's check changes, with its data; empty while a helper fills the list.
    std::function<void(qint32 data, bool checked)> onCheck;

    /// Does nothing when the row has that state already.
    void SetChecked(size_t row, bool checked);
    /// Every row, from the last to the first.
    void SetAll(bool checked);
    /// Says whether a sort state (see ListSettings) names a column that is here.
    [[nodiscard]] bool CanSort(int sortState) const;
    /// Sorts the rows themselves by a sort state. Stable. A sort state that names no column here moves no row.
    /// `order[i]` of the result is where row i was.
    std::vector<int> Sort(int sortState, const std::function<int(qint32 a, qint32 b, int column)> &compare);
};

/// What a list of check boxes is about: fills it, counts what would change, asks and applies it. Belongs to the caller
/// of the dialog.
class IListFltrHelper
{
public:
    /// Adds the columns and rows and sets the checks.
    virtual bool InitList(CheckList &list) = 0;
    /// OK was pressed. True closes the dialog.
    virtual bool Apply(CheckList &list) = 0;
    virtual void OnCheck(qint32 itemData, bool checked) = 0;
    /// Below 0, 0 or above 0: the row with data `a` comes before the one with `b` in that column.
    [[nodiscard]] virtual int Compare(qint32 a, qint32 b, int column) const = 0;

protected:
    ~IListFltrHelper() = default;
};
