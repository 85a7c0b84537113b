// SPDX-License-Identifier: MIT
#include "CLotEditorView.h"

#include "CListGrid.h"
#include "CResDoc.h"
#include "CellPlace.h"
#include "PropertyControls.h"
#include "PropertyDelegate.h"
#include "PropertyFilter.h"
#include "ViewHost.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int CONTROL_ID = 1019;
constexpr int DEFAULT_WIDTHS[PropertyModel::COLUMN_COUNT] = {150, 400, 150}; // pixels
constexpr int UNSORTED = 0;
constexpr int GROWTH = 2;   // pixels by which an editor is taller than its cell, at the top and at the bottom
constexpr int NARROW = 100; // pixels: if less of a value is visible, the grid scrolls to the rest of it

Qt::KeyboardModifiers ModifiersOf(const QKeyEvent &key)
{
    return key.modifiers() & ~Qt::KeypadModifier;
}

bool IsEnter(const QKeyEvent &key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool TypesText(const QKeyEvent &key)
{
    return !(ModifiersOf(key) & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) && !key.text().isEmpty() &&
           key.text().front().isPrint();
}

} // namespace

CLotEditorView::CLotEditorView(CResDoc &projectDocument, IViewHost &viewHost)
    : document(projectDocument), host(viewHost), model(projectDocument.env),
      stored(projectDocument.env.settings, CONTROL_ID), filter(new PropertyFilter(this)), grid(new CListGrid),
      controls(new PropertyControls(*grid, viewHost.Boxes()))
{
    auto *const parts = new QVBoxLayout(this);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(0);
    parts->addWidget(filter);
    parts->addWidget(grid, 1);
    setFocusProxy(grid);
    MakeGrid();
    ConnectGrid();
    filter->textChanged = [this](const QString &text) { SetFilter(text); };
    filter->toGrid = [this] { EnterGrid(); };
}

CLotEditorView::~CLotEditorView()
{
    (void)EndEditor(End::Drop);
    grid->viewport()->removeEventFilter(this); // both filters would use parts of the list that it is destroying
    delete controls;
    delete grid; // before the model that it shows
}

void CLotEditorView::MakeGrid()
{
    grid->setAccessibleName(u"Properties"_s);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setAutoScroll(false); // see PlaceOver
    grid->setItemDelegate(new PropertyDelegate(grid));
    grid->setModel(&model);
    grid->horizontalHeader()->setSectionsClickable(false);
    for (int col = 0; col < PropertyModel::COLUMN_COUNT; ++col)
        grid->horizontalHeader()->resizeSection(col, stored.Width(col, DEFAULT_WIDTHS[col]));
}

void CLotEditorView::ConnectGrid()
{
    const auto end = [this] {
        if (!isOpening)
            (void)EndEditor(End::Apply);
    };
    for (const QScrollBar *bar : {grid->horizontalScrollBar(), grid->verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, end);
    connect(grid->horizontalHeader(), &QHeaderView::sectionResized, this, end);
    grid->viewport()->installEventFilter(this);
    connect(grid->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CLotEditorView::RowSelected);
    connect(grid, &QAbstractItemView::clicked, this, [this] { (void)EnterEditor(); });
    controls->told = [this](EditControl control, EditEvent event) { Told(control, event); };
    controls->keyPressed = [this](EditControl control, const QKeyEvent &key) {
        return control == EditControl::Grid ? KeyInGrid(key) : KeyInControl(control, key);
    };
}

void CLotEditorView::ShowComponent(CLayoutRes *layoutRes, CZulClass *component)
{
    if (component == current)
        return;
    (void)EndEditor(End::Apply);
    // A change of the tree is reported later, because the list can't rebuild its tree while it selects a row.
    if (untold == Applied::Changed)
        TellChange();
    layout = layoutRes;
    current = component;
    model.Show(component);
}

void CLotEditorView::LetGo()
{
    (void)EndEditor(End::Drop);
    TellChange();
    layout = nullptr;
    current = nullptr;
    model.Show(nullptr);
}

bool CLotEditorView::TakeEdit()
{
    const bool isTaken = EndEditor(End::Apply);
    TellChange();
    return isTaken;
}

QList<ProfileEntry> CLotEditorView::State() const
{
    const std::vector<int> widths = grid->Widths();
    return stored.State(QList<int>(widths.begin(), widths.end()), UNSORTED);
}

/// A text box that has the focus handles the actions of the Edit menu itself.
std::optional<ActionState> CLotEditorView::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_FIND_BAR:
        return ActionState{true, !filter->isHidden()};
    case ACTION_COPY:
    case ACTION_CUT:
    case ACTION_PASTE:
    case ACTION_UNDO:
    case ACTION_SELECT_ALL:
    case ACTION_DELETE:
        return ActionState{false};
    default:
        return std::nullopt;
    }
}

void CLotEditorView::Run(ActionId id)
{
    if (id == ACTION_FIND_BAR)
        filter->Toggle();
}

int CLotEditorView::SelectedRow() const
{
    const std::vector<int> rows = grid->SelectedRows();
    return rows.size() == 1 ? rows.front() : -1;
}

void CLotEditorView::SelectPlace(int place)
{
    const int row = model.RowOf(place);
    if (row < 0 || row == SelectedRow())
        return;
    const QScopedValueRollback opening(isOpening, true);
    grid->SelectAlone(row, PropertyModel::NAME_COLUMN);
}

void CLotEditorView::RowSelected()
{
    const int row = SelectedRow();
    if (isOpening || (editor && row == editedRow) || !EndEditor(End::Apply))
        return;
    ScrollTo(row, /*sideways=*/false);
    OpenEditor(row);
}

void CLotEditorView::ScrollTo(int row, bool sideways)
{
    const QScopedValueRollback opening(isOpening, true);
    const int before = grid->horizontalScrollBar()->value();
    grid->scrollTo(model.index(row, PropertyModel::VALUE_COLUMN));
    if (!sideways)
        grid->horizontalScrollBar()->setValue(before);
}

/// Scrolls sideways only if too little of the value is visible, because the name should stay visible.
std::optional<QRect> CLotEditorView::PlaceOver(int row)
{
    const QModelIndex cell = model.index(row, PropertyModel::VALUE_COLUMN);
    const auto look = [&] { return PlaceOverCell(grid->visualRect(cell), grid->viewport()->rect(), GROWTH); };
    ScrollTo(row, /*sideways=*/false);
    auto place = look();
    if (!place || place->width() < NARROW) {
        ScrollTo(row, /*sideways=*/true);
        place = look();
    }
    if (place)
        place->setLeft(qMax(place->left(), 0));
    return place;
}

void CLotEditorView::OpenEditor(int row)
{
    if (row < 0 || !current || !layout || isRefusing)
        return;
    std::shared_ptr<CPropEditor> made = MakeEditor(model.At(row), *controls, document);
    const QScopedValueRollback opening(isOpening, true);
    const auto place = made ? PlaceOver(row) : std::nullopt;
    if (!place || !made->Open(*layout, *current, *place))
        return;
    editor = std::move(made);
    editedRow = row;
    controls->SetName(model.At(row).name);
}

bool CLotEditorView::EnterEditor()
{
    if (!editor)
        OpenEditor(SelectedRow());
    if (editor)
        controls->Focus(editor->First());
    return editor != nullptr;
}

/// Keeps the editor alive: an event may open a dialog, and when that closes another editor may be open, or none.
void CLotEditorView::Told(EditControl control, EditEvent event)
{
    const std::shared_ptr<CPropEditor> asked = editor;
    if (!isOpening && asked && asked->WantsApply(control, event) && asked == editor)
        (void)EndEditor(End::Apply);
}

/// Hides the controls and focuses the grid before a box can open, because the box would take the controls' focus.
bool CLotEditorView::EndEditor(End how)
{
    if (!editor)
        return true;
    const std::shared_ptr<CPropEditor> ended = std::exchange(editor, nullptr);
    const int place = model.PlaceOf(std::exchange(editedRow, -1));
    if (controls->Have(grid->window()->focusWidget())) // valid also while the window isn't active
        grid->setFocus(Qt::OtherFocusReason);
    const Applied applied = how == End::Apply ? ended->Apply() : Applied::Nothing;
    ended->Close();
    if (applied == Applied::Refused) {
        Refused(place);
        return false;
    }
    if (applied == Applied::Nothing)
        return true;
    model.Refresh();
    untold = std::max(untold, applied);
    QMetaObject::invokeMethod(
        this, [this] { TellChange(); }, Qt::QueuedConnection);
    return true;
}

void CLotEditorView::Refused(int place)
{
    isRefusing = true;
    host.Boxes().ShowMessage(u"Invalid input."_s, [view = QPointer(this), component = current, place] {
        if (!view)
            return;
        view->isRefusing = false;
        if (view->current == component)
            view->SelectPlace(place);
    });
}

void CLotEditorView::TellChange()
{
    const Applied applied = std::exchange(untold, Applied::Nothing);
    if (applied == Applied::Nothing || !changed)
        return;
    const QPointer view(this);
    const CZulClass *const component = current;
    const int place = model.PlaceOf(SelectedRow());
    changed(applied);
    if (view && current == component && SelectedRow() < 0)
        SelectPlace(place); // the list was rebuilt, and another component was shown meanwhile
}

bool CLotEditorView::KeyInControl(EditControl control, const QKeyEvent &key)
{
    const bool isPlain = ModifiersOf(key) == Qt::NoModifier;
    const bool isText = control >= EditControl::Text0 && control <= EditControl::Text3;
    if (IsEnter(key)) {
        (void)EndEditor(End::Apply);
        return true;
    }
    switch (key.key()) {
    case Qt::Key_Escape:
        (void)EndEditor(End::Drop);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        if (!controls->FocusNext(control, key.key() == Qt::Key_Tab ? 1 : -1))
            (void)EndEditor(End::Apply);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (isText && isPlain)
            Step(key.key() == Qt::Key_Up ? -1 : 1);
        return isText;
    default:
        return false;
    }
}

/// Leaves the focus in the grid, so that further arrow keys move from row to row and change no choice.
void CLotEditorView::Step(int step)
{
    const int row = editedRow + step;
    if (row >= 0 && row < model.rowCount() && EndEditor(End::Apply))
        grid->SelectAlone(row, PropertyModel::NAME_COLUMN);
}

bool CLotEditorView::KeyInGrid(const QKeyEvent &key)
{
    if (IsEnter(key)) {
        if (editor)
            (void)EndEditor(End::Apply);
        else
            (void)EnterEditor();
        return true;
    }
    switch (key.key()) {
    case Qt::Key_Escape:
        (void)EndEditor(End::Drop);
        return true;
    case Qt::Key_F2:
        return EnterEditor();
    case Qt::Key_Tab:
        return editor && ModifiersOf(key) == Qt::NoModifier && EnterEditor();
    case Qt::Key_Left:
    case Qt::Key_Right:
        grid->horizontalScrollBar()->triggerAction(key.key() == Qt::Key_Left ? QScrollBar::SliderSingleStepSub
                                                                             : QScrollBar::SliderSingleStepAdd);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (ModifiersOf(key) & Qt::AltModifier)
            return TypeInto(key);
        if (SelectedRow() >= 0 || model.rowCount() == 0)
            return false;
        grid->SelectAlone(qMax(0, grid->currentIndex().row()), PropertyModel::NAME_COLUMN);
        return true;
    default:
        return TypesText(key) && TypeInto(key);
    }
}

/// The typed text replaces the text of the editor, or chooses the entry that begins with it.
bool CLotEditorView::TypeInto(const QKeyEvent &key)
{
    if (!EnterEditor())
        return false;
    controls->Type(editor->First(), key);
    return true;
}

void CLotEditorView::EnterGrid()
{
    grid->setFocus();
    if (SelectedRow() < 0 && model.rowCount() > 0)
        SelectPlace(model.PlaceOf(0));
}

void CLotEditorView::SetFilter(const QString &text)
{
    const int place = model.PlaceOf(SelectedRow());
    (void)EndEditor(End::Apply);
    model.SetFilter(text);
    SelectPlace(place);
}

bool CLotEditorView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == grid->viewport() && event->type() == QEvent::Resize && !isOpening)
        (void)EndEditor(End::Apply);
    return QWidget::eventFilter(watched, event);
}

void CLotEditorView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        (void)EndEditor(End::Apply);
}
