// SPDX-License-Identifier: MIT
#include "CStringView.h"

#include "CLangFltr.h"
#include "CListFltrDlg.h"
#include "CResDoc.h"
#include "DetailsStrip.h"
#include "DroppedFiles.h"
#include "FindBar.h"
#include "ProjectCheck.h"
#include "StringCommands.h"
#include "StringFinder.h"
#include "StringGrid.h"
#include "ViewHost.h"
#include "ViewMenu.h"
#include "WaitCursor.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

namespace
{

constexpr ViewMenuEntry LINE{ACTION_NONE};
constexpr ViewMenuEntry MENU[] = {
    {ACTION_NEW, "&New"},
    LINE,
    {ACTION_IMPORT, "&Import..."},
    {ACTION_EXPORT, "&Export..."},
    LINE,
    {ACTION_LANGUAGE, "&Language..."},
    LINE,
    {ACTION_UNDO, "&Undo\tCtrl+Z"},
    {ACTION_REDO, "Redo\tCtrl+Y"},
    LINE,
    {ACTION_COPY, "&Copy\tCtrl+C"},
    {ACTION_PASTE, "&Paste\tCtrl+V"},
    LINE,
    {ACTION_DELETE, "&Delete\tDel"},
    {ACTION_DELETE_ALL, "Delete &All"},
    LINE,
    {ACTION_PUSH_STRING, "Push Resource"},
};

} // namespace

CStringView::CStringView(CResDoc &projectDocument, IViewHost &viewHost, ProjectCheck &projectCheck)
    : document(projectDocument), host(viewHost), check(projectCheck), table(projectDocument, model),
      transfer(projectDocument, viewHost.Boxes()),
      grid(new StringGrid(table, model, viewHost.Boxes(), projectDocument.env.settings,
                          projectDocument.tables.resourceTypes)),
      clipboard(table, model, *grid, viewHost.Boxes()),
      finder(new StringFinder(table, model, *grid, viewHost.Boxes(), *this))
{
    model.SetTable(&table);
    model.SetCheck(&check);
    model.showsGaps = document.env.settings.Int("Strings", "gap_marks", 1) != 0;
    setAcceptDrops(true);
    auto *const parts = new QVBoxLayout(this);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(0);
    parts->addWidget(&finder->Bar());
    parts->addWidget(grid, 1);
    parts->addWidget(&finder->Details());
    setFocusProxy(grid);
    grid->menuWanted = [this](const QContextMenuEvent &event) { OpenMenu(event); };
    document.AddView(this);
}

CStringView::~CStringView()
{
    document.RemoveView(this);
    (void)grid->SaveState();
    delete finder;
    delete grid; // before the model that it uses
    model.SetCheck(nullptr);
    model.SetTable(nullptr);
}

/// Shows the tree as it is now.
void CStringView::Rebuild()
{
    (void)grid->TakeEdit();
    table.Rebuild();
    grid->SortRows();
    finder->ApplyFilter();
    grid->SelectLastRow();
}

void CStringView::ForgetEdits()
{
    table.history.Clear();
    table.ForgetCopies();
}

bool CStringView::TakeEdit()
{
    return grid->TakeEdit();
}

void CStringView::GoTo(const CBaseRes &resource, const RowPart &part)
{
    const int row = table.RowOf(resource.Id()->name, 0);
    if (row < 0)
        return;
    if (model.ShownRow(row) < 0)
        finder->EndFilter();
    const int language = part.language < 0 ? table.ColumnCount() : table.ColumnOf(part.language);
    const int col = language < table.ColumnCount() ? language : StringTable::ID_COLUMN;
    if (col != StringTable::ID_COLUMN)
        grid->HideColumn(col, false);
    grid->SelectAlone(model.ShownRow(row), col);
    grid->setFocus();
}

RowPlace CStringView::FocusedRow() const
{
    const QModelIndex cell = grid->currentIndex();
    const CStringRes *const head = cell.isValid() ? table.Head(model.TableRow(cell.row())) : nullptr;
    if (!head)
        return {};
    const CResFolder *const language = table.ColumnLanguage(cell.column());
    return {head, {true, language ? language->index : -1}};
}

QList<ProfileEntry> CStringView::State() const
{
    return grid->State();
}

StringGridState CStringView::GridState() const
{
    const StringGrid::SelectionCount &selected = grid->CountSelected();
    return {table.RowCount(),        selected.rows,           selected.hasNewRow,
            table.history.CanUndo(), table.history.CanRedo(), !table.Copied().empty()};
}

std::optional<ActionState> CStringView::StateOf(ActionId id) const
{
    if (const auto state = finder->StateOf(id))
        return state;
    if (id == ACTION_COPY_CELLS)
        return StringActionState(ACTION_COPY, GridState());
    if (id == ACTION_PASTE_CELLS)
        return ActionState{};
    return StringActionState(id, GridState());
}

void CStringView::Run(ActionId id)
{
    switch (id) {
    case ACTION_NEW:
        return New();
    case ACTION_IMPORT:
        return Import();
    case ACTION_EXPORT:
        return transfer.Export();
    case ACTION_LANGUAGE:
        return ChooseLanguages();
    case ACTION_UNDO:
        return UndoOrRedo(&CommandHistory::Undo);
    case ACTION_REDO:
        return UndoOrRedo(&CommandHistory::Redo);
    case ACTION_RENAME:
        return grid->OpenCellEditor(grid->SelectedRows().front(), StringTable::ID_COLUMN);
    case ACTION_COPY:
        return table.Copy(grid->SelectedStrings());
    case ACTION_PASTE:
        return PasteRows();
    case ACTION_DELETE:
        return DeleteSelected();
    case ACTION_DELETE_ALL:
        return DeleteAll();
    case ACTION_SELECT_ALL:
        return grid->selectAll();
    case ACTION_PUSH_STRING:
        return PushSelected();
    case ACTION_COPY_CELLS:
        return clipboard.Copy();
    case ACTION_PASTE_CELLS:
        return clipboard.Paste();
    default:
        return finder->Run(id);
    }
}

/// Shows the wait cursor, because a step may change many thousand rows.
void CStringView::UndoOrRedo(void (CommandHistory::*step)())
{
    const WaitCursor cursor;
    (table.history.*step)();
}

void CStringView::New()
{
    const int newRow = model.rowCount() - 1;
    grid->HideColumn(StringTable::ID_COLUMN, false); // the editor needs room
    grid->SelectAlone(newRow, StringTable::ID_COLUMN);
    grid->OpenCellEditor(newRow, StringTable::ID_COLUMN);
}

void CStringView::ChooseLanguages()
{
    CResFolder *const strings = document.root.FindFolder(KIND_STRINGS, 2);
    if (!strings)
        return;
    CLangFltr filter(table, document, *strings, host.Boxes());
    CListFltrDlg dialog(filter, document.env.settings, this);
    (void)host.Boxes().RunDialog(dialog);
}

void CStringView::Import()
{
    if (!transfer.Import())
        return;
    Rebuild();
    ForgetEdits();
    check.CheckAgain();
}

/// Each row is its own step. The flag is changed first, so the step is given the former text.
void CStringView::PushSelected()
{
    const StringTable::Batch batch(table); // no step can fail
    for (const int row : grid->SelectedStrings()) {
        IDRecord *const id = table.Head(row)->Id();
        const QString before = table.CellText(row, StringTable::KIND_COLUMN);
        id->push = !id->push;
        id->pushKind = PUSH_STRING;
        table.history.Run(std::make_unique<STR_MOD_CMD>(table, row, StringTable::KIND_COLUMN, before,
                                                        table.CellText(row, StringTable::KIND_COLUMN)));
    }
}

void CStringView::DeleteSelected()
{
    if (host.Boxes().AskYesNo(QStringLiteral("The selected item(s) will be deleted. Continue?")))
        DeleteRows(grid->SelectedStrings());
}

/// Removes the filter first, so that the user sees everything that is deleted.
void CStringView::DeleteAll()
{
    finder->EndFilter();
    if (!host.Boxes().AskYesNo(QStringLiteral("All the item(s) will be deleted. Continue?")))
        return;
    std::vector<int> all(size_t(table.RowCount()));
    for (size_t row = 0; row < all.size(); ++row)
        all[row] = int(row);
    DeleteRows(all);
}

void CStringView::PasteRows()
{
    const WaitCursor cursor;
    table.history.Run(std::make_unique<STR_PST_CMD>(table));
}

void CStringView::DeleteRows(const std::vector<int> &toDelete)
{
    const WaitCursor cursor;
    if (!toDelete.empty())
        table.history.Run(std::make_unique<STR_DEL_CMD>(table, toDelete));
}

void CStringView::OpenMenu(const QContextMenuEvent &event)
{
    const StringGridState state = GridState();
    QPoint place = event.globalPos();
    if (event.reason() == QContextMenuEvent::Keyboard) {
        const QRect row = grid->RowRect(state.selected == 1 ? grid->SelectedRows().front() : 0);
        place = grid->viewport()->mapToGlobal(QPoint(row.left() + 5, row.center().y()));
    }
    const auto stateOf = [&](ActionId id) {
        if (id == ACTION_PUSH_STRING)
            return PushEntryState(state, PushedStrings());
        // The state for an edit control with the focus comes first, as in the main menu.
        return ActionState{host.IsEnabled(id) && (id != ACTION_DELETE_ALL || state.strings > 0)};
    };
    RunViewMenu(*this, MENU, place, stateOf, [this](ActionId id) { host.RunAction(id); });
}

int CStringView::PushedStrings() const
{
    int pushed = 0;
    for (const int row : grid->SelectedStrings())
        pushed += table.Head(row)->Id()->push ? 1 : 0;
    return pushed;
}

void CStringView::dragEnterEvent(QDragEnterEvent *event)
{
    if (!DroppedFiles(event->mimeData()).isEmpty()) // whatever has the focus
        event->acceptProposedAction();
}

/// Imports the files after the drop, because the program that they come from waits until the drop has ended.
void CStringView::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    const QStringList files = DroppedFiles(event->mimeData());
    QTimer::singleShot(0, this, [this, files] {
        host.AfterCommand([view = QPointer(this), files] {
            if (!view || !view->TakeEdit() || !view->transfer.ImportDropped(files))
                return;
            view->Rebuild();
            view->check.CheckAgain();
        });
    });
}
