// SPDX-License-Identifier: MIT
#include "FileGrid.h"

#include "CellEditor.h"
#include "CellPlace.h"
#include "ChoiceBox.h"
#include "IdNames.h"
#include "ViewBoxes.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace
{

constexpr int CONTROL_ID = 1011;
constexpr int DEFAULT_WIDTHS[] = {200, 80, 400}; // pixels

} // namespace

FileGrid::FileGrid(FileList &fileList, FileListModel &listModel, IViewBoxes &viewBoxes, Settings &settings,
                   const QStringList &types)
    : list(fileList), rows(listModel), boxes(viewBoxes), stored(settings, CONTROL_ID), sortState(stored.SortState(1)),
      editor(new CellEditor(*this)), typeBox(new ChoiceBox(*this, types)),
      button(new QPushButton(QStringLiteral("..."), viewport()))
{
    setAccessibleName(QStringLiteral("Files"));
    typeBox->setAccessibleName(QStringLiteral("Resource Type"));
    button->setAccessibleName(QStringLiteral("Browse"));
    button->setFocusPolicy(Qt::NoFocus); // the selected row keeps the focus
    button->hide();
    setModel(&rows);
    MakeColumns();
    Connect();
    ConnectControls();
}

void FileGrid::MakeColumns()
{
    for (int col = 0; col < FileList::COLUMN_COUNT; ++col)
        horizontalHeader()->resizeSection(col, stored.Width(col, DEFAULT_WIDTHS[col]));
    ShowSort(sortState);
}

void FileGrid::Connect()
{
    const auto lookAnew = [this] {
        selected.reset();
        Follow();
    };
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, lookAnew);
    connect(&rows, &QAbstractItemModel::modelReset, this, lookAnew);
    connect(&rows, &QAbstractItemModel::rowsInserted, this, lookAnew);
    connect(&rows, &QAbstractItemModel::rowsRemoved, this, lookAnew);
    connect(&rows, &QAbstractItemModel::layoutChanged, this, lookAnew);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &FileGrid::Follow);
    for (const QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &FileGrid::Follow);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &FileGrid::SortBy);
    connect(this, &QAbstractItemView::clicked, this, &FileGrid::Clicked);
    connect(this, &QAbstractItemView::doubleClicked, this, &FileGrid::DoubleClicked);
}

void FileGrid::ConnectControls()
{
    editor->committed = [this](const QPersistentModelIndex &cell, const QString &text) { return Commit(cell, text); };
    typeBox->picked = [this](const QModelIndex &cell, const QString &type) { return list.SetType(cell.row(), type); };
    typeBox->chosen = [this](const QPersistentModelIndex &cell, const QString &type) {
        if (Selected().first == cell.row())
            list.CloseType(cell.row(), type);
    };
    connect(button, &QPushButton::clicked, this, [this] {
        if (browseWanted)
            browseWanted();
    });
}

void FileGrid::ShowFolder(CResFolder *folder)
{
    button->hide();
    (void)TakeEdit();
    const NarrowText id = lastId;
    {
        const QScopedValueRollback showing(isShowing, true);
        list.Fill(folder, sortState);
    }
    lastId = id;
    ShowSort(sortState);
    const int row = id.isEmpty() ? -1 : list.RowOf(id);
    if (row >= 0)
        SelectAlone(row, FileList::ID_COLUMN);
    else if (focusMoved)
        focusMoved();
}

void FileGrid::LetGo()
{
    button->hide();
    editor->Cancel();
    typeBox->Cancel();
    const QScopedValueRollback showing(isShowing, true);
    list.LetGo();
}

void FileGrid::OpenIdEditor()
{
    typeBox->Commit();
    const int row = Selected().first;
    if (row < 0)
        return button->hide();
    if (columnWidth(FileList::ID_COLUMN) == 0) { // the editor needs room
        horizontalHeader()->resizeSection(FileList::ID_COLUMN, DEFAULT_WIDTHS[FileList::ID_COLUMN]);
        // The view would show a scroll bar later, which would close the editor.
        updateGeometries();
        QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    }
    const QModelIndex cell = rows.index(row, FileList::ID_COLUMN);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    (void)editor->Open(cell, cell.data(Qt::EditRole).toString(), MAX_ID_NAME);
    button->hide(); // at the end, because a change of size has placed it again
}

void FileGrid::EditNewRow()
{
    if (!list.HasNewRow())
        return;
    SelectAlone(list.Files(), FileList::ID_COLUMN);
    OpenIdEditor();
}

/// If the list refuses the ID, the message is shown after the key or click that caused the commit has been processed.
/// Otherwise an editor that is still visible, or opens now, would lose the focus to the box and be committed again.
bool FileGrid::Commit(const QPersistentModelIndex &cell, const QString &text)
{
    const QString id = ToUpperSimple(text.trimmed());
    const int code = id.isEmpty() ? FILE_EDIT_DONE : list.ApplyIdEdit(cell.row(), id);
    if (code == FILE_EDIT_DONE)
        return true;
    boxes.ShowMessage(FileEditMessage(code), [grid = QPointer(this), cell] {
        if (!grid || !cell.isValid())
            return;
        grid->SelectAlone(cell.row(), cell.column());
        grid->OpenIdEditor();
    });
    return false;
}

bool FileGrid::TakeEdit()
{
    typeBox->Take();
    return editor->Commit();
}

void FileGrid::PlaceButton()
{
    typeBox->Commit();
    const int row = Selected().first;
    const int col = FileList::PATH_COLUMN;
    const QRect cell(columnViewportPosition(col), rowViewportPosition(row), columnWidth(col), rowHeight(row));
    const auto place = Selected().count == 1 ? PlaceAtCellEnd(cell, viewport()->rect()) : std::nullopt;
    if (place)
        button->setGeometry(*place);
    button->setVisible(place.has_value());
}

void FileGrid::PlaceTypeBox()
{
    button->hide();
    if (Selected().count != 1)
        return typeBox->Commit();
    const QModelIndex cell = rows.index(Selected().first, FileList::TYPE_COLUMN);
    typeBox->Commit();
    (void)typeBox->Open(cell, cell.data(Qt::EditRole).toString());
}

/// Moves the button with the path of the selected row. The other controls move by themselves.
void FileGrid::Follow()
{
    if (!button->isHidden() && list.At(Selected().first))
        PlaceButton();
    else
        button->hide();
}

void FileGrid::SortBy(int col)
{
    (void)TakeEdit();
    sortState = ListSettings::NextSortState(sortState, col);
    ShowSort(sortState);
    list.Sort(sortState);
}

void FileGrid::Clicked(const QModelIndex &cell)
{
    const bool isNewRow = Selected().first >= 0 && !list.At(Selected().first);
    if (isNewRow)
        return;
    if (cell.column() == FileList::TYPE_COLUMN)
        PlaceTypeBox();
    else
        PlaceButton();
}

void FileGrid::DoubleClicked(const QModelIndex &cell)
{
    if (cell.column() != FileList::ID_COLUMN) {
        if (browseWanted)
            browseWanted();
    } else if (!list.IsItemFolder()) {
        OpenIdEditor();
    }
}

const FileSelection &FileGrid::Selected() const
{
    if (selected)
        return *selected;
    FileSelection &now = *(selected = FileSelection());
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        now.count += range.height();
        now.first = now.first < 0 ? range.top() : qMin(now.first, range.top());
    }
    return now;
}

QList<ProfileEntry> FileGrid::State() const
{
    const std::vector<int> now = Widths();
    return stored.State(QList<int>(now.begin(), now.end()), sortState);
}

void FileGrid::NoteFocus()
{
    const CFileRes *const res = list.At(currentIndex().row());
    lastId = res ? res->Id()->name : NarrowText();
    if (focusMoved)
        focusMoved();
}

void FileGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    CListGrid::currentChanged(current, previous);
    if (!isShowing && current.row() != previous.row())
        NoteFocus();
}

void FileGrid::dataChanged(const QModelIndex &first, const QModelIndex &last, const QList<int> &roles)
{
    CListGrid::dataChanged(first, last, roles);
    if (roles.isEmpty() && currentIndex().row() >= first.row() && currentIndex().row() <= last.row())
        NoteFocus();
}

void FileGrid::scrollTo(const QModelIndex &cell, ScrollHint hint)
{
    const int before = horizontalScrollBar()->value();
    CListGrid::scrollTo(cell, hint);
    if (cell.column() == FileList::PATH_COLUMN)
        horizontalScrollBar()->setValue(before);
}

/// The left and right keys scroll, because rows have the focus, not cells.
void FileGrid::keyPressEvent(QKeyEvent *event)
{
    const bool isBack = event->key() == (isRightToLeft() ? Qt::Key_Right : Qt::Key_Left);
    if ((event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) &&
        !(event->modifiers() & ~Qt::KeypadModifier)) {
        horizontalScrollBar()->triggerAction(isBack ? QScrollBar::SliderSingleStepSub
                                                    : QScrollBar::SliderSingleStepAdd);
        return;
    }
    if (event->key() != Qt::Key_Down || !(event->modifiers() & Qt::AltModifier))
        return CListGrid::keyPressEvent(event);
    if (Selected().count == 1 && list.At(Selected().first)) {
        scrollTo(rows.index(Selected().first, FileList::TYPE_COLUMN)); // without a click it may be out of sight
        PlaceTypeBox();
    }
}

void FileGrid::resizeEvent(QResizeEvent *event)
{
    CListGrid::resizeEvent(event);
    PlaceButton();
}
