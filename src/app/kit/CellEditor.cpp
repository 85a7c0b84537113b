// SPDX-License-Identifier: MIT
#include "CellEditor.h"

#include "CListGrid.h"
#include "CellPlace.h"
#include "LineEndGuard.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace
{

constexpr int GROWTH = 2; // pixels, for the frame

} // namespace

CellEditor::CellEditor(CListGrid &listGrid)
    : QLineEdit(listGrid.viewport()), grid(listGrid), line(new LineEndGuard(*this))
{
    hide();
    setAccessibleName(QStringLiteral("Cell"));
    const auto end = [this] {
        if (!isOpening)
            Commit();
    };
    for (const QScrollBar *bar : {grid.horizontalScrollBar(), grid.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, end);
    connect(grid.horizontalHeader(), &QHeaderView::sectionResized, this, end);
    grid.viewport()->installEventFilter(this);
}

bool CellEditor::Open(const QModelIndex &cell, const QString &text, int limit, Qt::LayoutDirection direction)
{
    const QScopedValueRollback opening(isOpening, true);
    grid.scrollTo(cell);
    const auto place = PlaceOverCell(grid.visualRect(cell), grid.viewport()->rect(), GROWTH);
    if (!place) {
        Close();
        return false;
    }
    edited = cell;
    before = text;
    isOpen = true;
    setGeometry(*place);
    setLayoutDirection(direction);
    setMaxLength(qMax(limit, int(text.size()))); // before setting the text, which must not be cut
    line->SetText(text);
    show();
    selectAll();
    setFocus(Qt::OtherFocusReason);
    return true;
}

/// Hides the editor. The list gets the focus, so that a box that opens next doesn't take it from the editor.
void CellEditor::Close()
{
    if (!isOpen)
        return;
    isOpen = false;
    if (hasFocus())
        grid.setFocus(Qt::OtherFocusReason);
    hide();
}

bool CellEditor::Commit()
{
    if (!isOpen)
        return true;
    const QString typed = text();
    const QPersistentModelIndex cell = edited;
    Close();
    return !cell.isValid() || typed == before || !committed || committed(cell, typed);
}

void CellEditor::Cancel()
{
    Close();
}

void CellEditor::Step(CellStep step)
{
    // The cell is given by numbers: a row that the commit makes replaces the new-row line.
    const auto next = target ? target(edited, step) : std::nullopt;
    if (!next)
        return;
    if (Commit() && arrived)
        arrived(*next);
}

bool CellEditor::event(QEvent *event)
{
    // Handled before the focus moves on.
    if (event->type() == QEvent::KeyPress) {
        const auto *const key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            Step(key->key() == Qt::Key_Tab && !(key->modifiers() & Qt::ShiftModifier) ? CellStep::Next
                                                                                      : CellStep::Previous);
            return true;
        }
    }
    return QLineEdit::event(event);
}

bool CellEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && !isOpening)
        Commit();
    return QLineEdit::eventFilter(watched, event);
}

void CellEditor::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason)
        Commit();
}

void CellEditor::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const CellAt cell{edited.row(), edited.column()};
        if (Commit() && (event->modifiers() & Qt::ControlModifier) && committedToGoOn)
            committedToGoOn(cell);
        return;
    }
    case Qt::Key_Escape:
        return Cancel();
    case Qt::Key_Up:
        return Step(CellStep::Up);
    case Qt::Key_Down:
        return Step(CellStep::Down);
    default:
        QLineEdit::keyPressEvent(event);
        event->accept(); // keys that the line ignores must not reach the list below it
    }
}
