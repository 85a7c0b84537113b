// SPDX-License-Identifier: MIT
#include "StringFinder.h"

#include "CellBlock.h"
#include "DetailsStrip.h"
#include "FindBar.h"
#include "ListCellDelegate.h"
#include "PlanTexts.h"
#include "StringGrid.h"
#include "ViewBoxes.h"

#include <QApplication>
#include <QStatusTipEvent>

namespace
{

constexpr int REFRESH_MS = 150; // after an edit: counting takes tens of milliseconds in a large table

} // namespace

StringFinder::StringFinder(StringTable &stringTable, StringGridModel &gridModel, StringGrid &stringGrid,
                           IViewBoxes &viewBoxes, QWidget &parent)
    : table(stringTable), model(gridModel), grid(stringGrid), boxes(viewBoxes), bar(new FindBar(&parent)),
      details(new DetailsStrip(&parent))
{
    bar->hide();
    details->hide();
    refresh.setSingleShot(true);
    refresh.setInterval(REFRESH_MS);
    Connect();
}

void StringFinder::Connect()
{
    connect(&refresh, &QTimer::timeout, this, &StringFinder::Refresh);
    model.changed = [this] {
        hasChanged = true;
        if (!refresh.isActive())
            refresh.start();
    };
    model.marksChanged = [this] { ShowDetails(); };
    grid.focusMoved = [this] { ShowDetails(); };
    bar->conditionChanged = [this] { Filter(); };
    bar->closed = [this] { CloseBar(); };
    bar->findNext = [this](bool back) { FindNext(back ? -1 : 1); };
    bar->toGrid = [this] { grid.setFocus(); };
    bar->replaceAll = [this] { ReplaceAll(); };
    bar->hideColumn = [this](int column, bool hide) {
        grid.HideColumn(column, hide);
        ShowHidden();
    };
}

std::optional<ActionState> StringFinder::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_FIND_BAR:
        return ActionState{true, !bar->isHidden()};
    case ACTION_DETAILS:
        return ActionState{true, !details->isHidden()};
    case ACTION_FIND_NEXT:
    case ACTION_FIND_PREVIOUS:
    case ACTION_NEXT_GAP:
    case ACTION_PREVIOUS_GAP:
    case ACTION_REPLACE:
        return ActionState{table.RowCount() > 0};
    default:
        return std::nullopt;
    }
}

void StringFinder::Run(ActionId id)
{
    switch (id) {
    case ACTION_FIND_BAR:
        // If the bar is visible but doesn't have the focus, the key moves the focus into it.
        return bar->isVisible() && bar->isAncestorOf(QApplication::focusWidget()) ? CloseBar() : ShowBar();
    case ACTION_REPLACE:
        ShowBar();
        return bar->ShowReplace(true);
    case ACTION_DETAILS:
        details->setVisible(details->isHidden());
        return ShowDetails();
    case ACTION_FIND_NEXT:
        return FindNext(1);
    case ACTION_FIND_PREVIOUS:
        return FindNext(-1);
    case ACTION_NEXT_GAP:
        return GoToGap(1);
    case ACTION_PREVIOUS_GAP:
        return GoToGap(-1);
    default:
        return;
    }
}

void StringFinder::ShowBar()
{
    if (bar->isHidden()) {
        bar->show();
        Refresh();
    }
    bar->FocusText();
}

void StringFinder::CloseBar()
{
    EndFilter();
    bar->ShowReplace(false);
    bar->hide();
    grid.setFocus();
}

void StringFinder::EndFilter()
{
    bar->Clear();
    Filter();
}

void StringFinder::Filter()
{
    if (bar->Condition() != applied)
        ApplyFilter();
}

void StringFinder::ApplyFilter()
{
    (void)grid.TakeEdit(); // the filter also changes without the user: when a language is removed
    const StringCondition condition = bar->Condition();
    if (condition.IsEmpty()) {
        if (model.HasFilter())
            model.SetFilter(std::nullopt);
    } else {
        const bool isNarrower = !hasChanged && model.HasFilter() && condition.IsWithin(applied);
        const std::vector<int> shown = isNarrower ? model.ShownTableRows() : std::vector<int>();
        model.SetFilter(RowsThatMeet(condition, table, isNarrower ? &shown : nullptr));
    }
    applied = condition;
    hasChanged = false;
    grid.SelectLastRow();
    bar->ShowCounts(model.rowCount() - 1, table.RowCount());
    ShowDetails();
}

/// Updates the counts and the strip after changes.
void StringFinder::Refresh()
{
    if (bar->isVisible()) {
        bar->Fill(table);
        bar->ShowCounts(model.rowCount() - 1, table.RowCount());
        ShowHidden();
    }
    ShowDetails();
}

void StringFinder::ShowHidden()
{
    std::vector<bool> hidden;
    for (const int width : grid.Widths())
        hidden.push_back(width == 0);
    bar->ShowHidden(hidden);
}

/// Searches from the cell with the focus, and wraps around once.
void StringFinder::FindNext(int step)
{
    const StringCondition condition = bar->Condition();
    if (bar->isHidden() || condition.text.isEmpty())
        return ShowBar();
    const int rows = model.rowCount() - 1;
    const int columns = model.columnCount();
    if (rows < 1)
        return;
    const QModelIndex from = grid.currentIndex();
    const qint64 cells = qint64(rows) * columns;
    const qint64 start = from.isValid() ? qMin(cells - 1, qint64(from.row()) * columns + from.column()) : cells - 1;
    const std::vector<int> widths = grid.Widths();
    for (qint64 i = 1; i <= cells; ++i) {
        const qint64 at = ((start + step * i) % cells + cells) % cells;
        const int row = int(at / columns);
        const int col = int(at % columns);
        if (widths[size_t(col)] > 0 && HasText(condition, table, model.TableRow(row), col))
            return grid.SelectAlone(row, col);
    }
    Tell(QStringLiteral("Not found."));
}

void StringFinder::GoToGap(int step)
{
    const QModelIndex from = grid.currentIndex();
    if (!grid.GoToGap(from.isValid() ? from.row() : 0, from.isValid() ? from.column() : 0, step))
        Tell(step > 0 ? QStringLiteral("No text is missing after this cell.")
                      : QStringLiteral("No text is missing before this cell."));
}

void StringFinder::ReplaceAll()
{
    const StringCondition condition = bar->Condition();
    if (condition.text.isEmpty())
        return bar->FocusText();
    std::vector<int> columns;
    const std::vector<int> widths = grid.Widths();
    for (int col = StringTable::DESCRIPTION_COLUMN; col < table.ColumnCount(); ++col) {
        const bool isChosen = condition.column == StringCondition::ANY_COLUMN || condition.column == col;
        if (isChosen && widths[size_t(col)] > 0)
            columns.push_back(col);
    }
    const std::vector<CellChange> changes =
        PlanReplace(table, model.ShownTableRows(), columns, condition.text, condition.matchCase, bar->Replacement());
    if (changes.empty())
        return boxes.ShowMessage(QStringLiteral("No text in the visible rows and columns would change."));
    if (boxes.AskOkCancel(PlanText(table, changes, {}, {})))
        table.history.Run(std::make_unique<STR_SET_CMD>(table, changes, std::vector<NewRow>()));
}

void StringFinder::ShowDetails()
{
    if (details->isHidden())
        return;
    const QModelIndex cell = grid.currentIndex();
    const int row = cell.isValid() ? model.TableRow(cell.row()) : -1;
    if (row < 0 || table.IsNewRow(row))
        details->ShowNothing();
    else
        details->ShowCell(table, row, cell.column(), cell.row() + 1, model.rowCount() - 1);
    if (model.IsChecked())
        details->ShowFindings(UiIcon(cell.data(ROLE_MARK).toInt()),
                              cell.data(ROLE_FINDINGS).toString().split(u'\n', Qt::SkipEmptyParts));
    else
        details->HideFindings();
}

/// Shows a text in the status bar.
void StringFinder::Tell(const QString &text)
{
    QStatusTipEvent tip(text);
    QApplication::sendEvent(&grid, &tip);
}
