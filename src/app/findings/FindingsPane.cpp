// SPDX-License-Identifier: MIT
#include "FindingsPane.h"

#include "Actions.h"
#include "FindingGrid.h"
#include "FindingsBar.h"
#include "RuleStrip.h"
#include "ViewMenu.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int CONTROL_ID = 1101;
constexpr int WIDTHS[FindingList::COLUMN_COUNT] = {200, 100, 420, 160, 220}; // pixels

constexpr ViewMenuEntry LINE{ACTION_NONE};
constexpr ViewMenuEntry MENU[] = {
    {ACTION_GO_TO_FINDING, "&Go To\tEnter"},
    LINE,
    {ACTION_COPY, "&Copy\tCtrl+C"},
    {ACTION_SELECT_ALL, "Select &All\tCtrl+A"},
    LINE,
    {ACTION_EXPLAIN_RULE, "&Explain Rule"},
    LINE,
    {ACTION_CHECK_AGAIN, "Chec&k Again"},
};

} // namespace

FindingsPane::FindingsPane(Settings &settings, QWidget *parent)
    : QWidget(parent), stored(settings, CONTROL_ID), bar(new FindingsBar(this)), grid(new FindingGrid(this)),
      strip(new RuleStrip(this))
{
    auto *const parts = new QVBoxLayout(this);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(0);
    parts->addWidget(bar);
    parts->addWidget(grid, 1);
    parts->addWidget(strip);
    setFocusProxy(grid);
    setAccessibleName(QStringLiteral("Findings"));
    model.Change([this](FindingList &list) { list.SortBy(stored.SortState(0)); });
    grid->setModel(&model);
    MakeColumns();
    Connect();
    ShowState(CheckState::NoProject);
}

CListGrid &FindingsPane::Grid()
{
    return *grid;
}

void FindingsPane::MakeColumns()
{
    for (int col = 0; col < FindingList::COLUMN_COUNT; ++col)
        grid->setColumnWidth(col, stored.Width(col, WIDTHS[col]));
    grid->ShowSort(model.List().SortState());
}

void FindingsPane::Connect()
{
    bar->filterChanged = [this] { Change([this](FindingList &list) { list.SetFilter(bar->Filter()); }); };
    bar->toList = [this] { grid->setFocus(); };
    grid->entered = [this] { runAction(ACTION_GO_TO_FINDING); };
    grid->menuWanted = [this](const QContextMenuEvent &event) { OpenMenu(event); };
    connect(grid->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int col) {
        Change([col](FindingList &list) { list.SortBy(ListSettings::NextSortState(list.SortState(), col)); });
        grid->ShowSort(model.List().SortState());
    });
    connect(grid->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex &current) {
        if (!isChanging)
            CurrentChanged(current.row());
    });
}

template <typename Function> void FindingsPane::Change(const Function &change)
{
    const QScopedValueRollback changing(isChanging, true);
    std::vector<Finding> selected;
    for (const int row : grid->SelectedRows())
        selected.push_back(model.List().At(row));
    const int column = qMax(0, grid->currentIndex().column());
    const int scrolled = grid->verticalScrollBar()->value();
    model.Change(change);
    cursor.ListChanged();
    std::vector<int> rows = model.List().RowsOf(selected);
    if (rows.empty() && !selected.empty() && cursor.Row() >= 0)
        rows.push_back(cursor.Row()); // the text of the only selected finding has changed
    if (!rows.empty())
        grid->Select(rows);
    if (cursor.Row() >= 0)
        grid->selectionModel()->setCurrentIndex(model.index(cursor.Row(), column), QItemSelectionModel::NoUpdate);
    grid->verticalScrollBar()->setValue(scrolled);
    ShowRule();
}

void FindingsPane::Show(std::vector<Finding> found, CheckResult checked, const FindingCounts &counts, bool isOther)
{
    if (isOther) {
        const QScopedValueRollback changing(isChanging, true);
        grid->clearSelection();
        cursor.Set(-1);
    }
    Change([&](FindingList &list) { list.Set(std::move(found), std::move(checked)); });
    bar->ShowCounts(counts);
}

void FindingsPane::ShowState(CheckState checkState)
{
    grid->ShowEmptyText(EmptyListText(checkState, model.List()));
    bar->ShowRunning(checkState == CheckState::Checking && model.List().RowCount() > 0);
}

void FindingsPane::Select(int row)
{
    grid->SelectAlone(row, FindingList::ID_COLUMN);
    CurrentChanged(row); // even if it was the current row already
}

void FindingsPane::CurrentChanged(int row)
{
    cursor.Set(row);
    ShowRule();
}

void FindingsPane::ShowRule()
{
    if (!strip->isHidden())
        strip->ShowText(Current() < 0 ? QString() : RuleText(model.List().At(Current())));
}

void FindingsPane::Reset()
{
    bar->Clear();
    strip->hide();
}

QList<ProfileEntry> FindingsPane::State() const
{
    const std::vector<int> widths = grid->Widths();
    return stored.State(QList<int>(widths.begin(), widths.end()), model.List().SortState());
}

bool FindingsPane::IsList(const QWidget *widget) const
{
    return widget == grid;
}

std::optional<ActionState> FindingsPane::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_COPY:
        return ActionState{grid->selectionModel()->hasSelection()};
    case ACTION_SELECT_ALL:
        return ActionState{model.List().RowCount() > 0};
    case ACTION_EXPLAIN_RULE:
        return ActionState{Current() >= 0 && !RuleText(model.List().At(Current())).isEmpty(), !strip->isHidden()};
    default:
        return std::nullopt;
    }
}

void FindingsPane::Run(ActionId id)
{
    switch (id) {
    case ACTION_COPY:
        return Copy();
    case ACTION_SELECT_ALL:
        return grid->selectAll();
    case ACTION_EXPLAIN_RULE:
        strip->setVisible(strip->isHidden());
        return ShowRule();
    default:
        return;
    }
}

/// Copies the selected findings as "check" prints them.
void FindingsPane::Copy()
{
    std::vector<Finding> findings;
    for (const int row : grid->SelectedRows())
        findings.push_back(model.List().At(row));
    if (locate)
        locate(findings);
    QByteArray lines;
    for (const Finding &finding : findings)
        lines += CheckLine(model.List().Checked(), finding);
    if (lines.count('\n') == 1)
        lines.chop(1);
    QGuiApplication::clipboard()->setText(QString::fromUtf8(lines));
}

void FindingsPane::OpenMenu(const QContextMenuEvent &event)
{
    QPoint place = event.globalPos();
    if (event.reason() == QContextMenuEvent::Keyboard) {
        const QRect row = grid->RowRect(qMax(0, Current()));
        place = grid->viewport()->mapToGlobal(QPoint(qMax(0, row.left()) + 5, row.center().y()));
    }
    const auto stateOf = [this](ActionId id) {
        if (const auto state = StateOf(id))
            return *state;
        return ActionState{isEnabled && isEnabled(id)};
    };
    RunViewMenu(*this, MENU, place, stateOf, [this](ActionId id) {
        if (id == ACTION_GO_TO_FINDING || id == ACTION_CHECK_AGAIN)
            return runAction(id);
        Run(id);
    });
}

void FindingsPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (shown)
        shown();
}

/// Escape hides the strip, wherever the focus is in the pane.
void FindingsPane::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape || strip->isHidden())
        return QWidget::keyPressEvent(event);
    grid->setFocus();
    strip->hide();
}
