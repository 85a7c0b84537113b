// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "FindingCursor.h"
#include "FindingTexts.h"
#include "FindingsModel.h"
#include "ListSettings.h"

#include <QWidget>

#include <functional>

class CListGrid;
class FindingGrid;
class FindingsBar;
class QContextMenuEvent;
class RuleStrip;

/// The pane of the findings of a project: a line with a filter, the list, and below it a strip that explains the rule
/// of the present finding if the user has asked for that. It shows what it is given, and knows no project.
class FindingsPane : public QWidget, public IActionTarget
{
public:
    /// The settings must outlive this object.
    FindingsPane(Settings &settings, QWidget *parent);

    /// Shows these findings. `checked` names the project and its languages. The selection and the present finding stay
    /// as far as the findings still exist; with `isOther`, for another project, there is none.
    void Show(std::vector<Finding> found, CheckResult checked, const FindingCounts &counts, bool isOther);
    void ShowState(CheckState checkState);

    [[nodiscard]] const FindingList &List() const { return model.List(); }
    [[nodiscard]] CListGrid &Grid();
    [[nodiscard]] FindingsBar &Bar() { return *bar; }
    /// The row of the present finding; -1 if there is none.
    [[nodiscard]] int Current() const { return cursor.Row(); }
    /// Returns the row of the next or previous finding (FindingCursor::Step).
    [[nodiscard]] int Step(int step, const std::optional<FocusedPlace> &focus) const
    {
        return cursor.Step(step, focus);
    }
    /// Makes a finding the present one, and selects only its row.
    void Select(int row);
    /// Lists all findings again, and hides the strip.
    void Reset();

    /// The entries for widths and order to store in the settings.
    [[nodiscard]] QList<ProfileEntry> State() const;

    /// Returns whether a widget is the list; then the pane gets the actions of the Edit menu.
    [[nodiscard]] bool IsList(const QWidget *widget) const;
    // IActionTarget
    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

    std::function<void()> shown;                                ///< the pane has become visible
    std::function<void(ActionId id)> runAction;                 ///< runs an action as the menu does
    std::function<bool(ActionId id)> isEnabled;                 ///< as the menu shows it
    std::function<void(std::vector<Finding> &findings)> locate; ///< adds the places of findings about strings

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Connect();
    void MakeColumns();
    /// Changes the list, and keeps the selection, the present finding and the scroll position.
    template <typename Function> void Change(const Function &change);
    void CurrentChanged(int row);
    void ShowRule();
    void Copy();
    void OpenMenu(const QContextMenuEvent &event);

    FindingsModel model;
    FindingCursor cursor{model.List()};
    ListSettings stored;
    FindingsBar *bar;
    FindingGrid *grid;
    RuleStrip *strip;
    bool isChanging = false;
};
