// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "StringFilter.h"

#include <QObject>
#include <QTimer>

class DetailsStrip;
class FindBar;
class IViewBoxes;
class QWidget;
class StringGrid;
class StringGridModel;
class StringTable;

/// Finding in the string table: the find bar with its filter and replacement, the gaps, and the strip with the details
/// of the cell with the focus.
class StringFinder : public QObject, public IActionTarget
{
public:
    /// All arguments must outlive this object. Makes the bar and the strip, which are hidden at first. `parent` owns
    /// them.
    StringFinder(StringTable &stringTable, StringGridModel &gridModel, StringGrid &stringGrid, IViewBoxes &viewBoxes,
                 QWidget &parent);

    [[nodiscard]] FindBar &Bar() { return *bar; }
    [[nodiscard]] DetailsStrip &Details() { return *details; }

    // IActionTarget, for the actions of the bar, the gaps and the strip
    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

    /// Shows the rows that meet the bar's condition now. Hides other rows, even if they were shown because they had
    /// been edited.
    void ApplyFilter();
    /// Shows all rows and empties the bar.
    void EndFilter();

private:
    void Connect();
    void ShowBar();
    void CloseBar();
    void Filter();
    void Refresh();
    void ShowHidden();
    void FindNext(int step);
    void GoToGap(int step);
    void ReplaceAll();
    void ShowDetails();
    void Tell(const QString &text);

    StringTable &table;
    StringGridModel &model;
    StringGrid &grid;
    IViewBoxes &boxes;
    FindBar *bar;
    DetailsStrip *details;
    StringCondition applied; // the condition of the shown rows
    bool hasChanged = true;  // the table has changed since then
    QTimer refresh;          // updates counts and details, once for many changes
};
