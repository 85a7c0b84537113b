// SPDX-License-Identifier: MIT
#include "ChoiceBox.h"

#include "CListGrid.h"
#include "CellPlace.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

ChoiceBox::ChoiceBox(CListGrid &listGrid, const QStringList &choices) : QComboBox(listGrid.viewport()), grid(listGrid)
{
    hide();
    addItems(choices);
    setAccessibleName(QStringLiteral("Choice"));
    connect(this, &QComboBox::activated, this, &ChoiceBox::Pick);
    connect(grid.horizontalHeader(), &QHeaderView::sectionResized, this, &ChoiceBox::Follow);
    for (const QScrollBar *bar : {grid.horizontalScrollBar(), grid.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &ChoiceBox::Follow);
}

bool ChoiceBox::Place()
{
    const auto place = PlaceOverCell(grid.visualRect(cell), grid.viewport()->rect(), 0);
    if (place)
        setGeometry(*place);
    return place.has_value();
}

void ChoiceBox::Follow()
{
    if (isOpen && !Place())
        Commit(); // its cell is out of view, and the focus can't remain there
}

bool ChoiceBox::Open(const QModelIndex &at, const QString &text)
{
    Cancel();
    cell = at;
    if (!Place())
        return false;
    isOpen = true;
    opened = findText(text, Qt::MatchStartsWith);
    setCurrentIndex(opened);
    show();
    setFocus(Qt::OtherFocusReason);
    return true;
}

void ChoiceBox::Pick()
{
    if (isOpen && (!picked || picked(cell, currentText())))
        Commit();
}

void ChoiceBox::Close()
{
    if (!isOpen)
        return;
    isOpen = false;
    if (hasFocus())
        grid.setFocus(Qt::OtherFocusReason);
    hidePopup();
    hide();
}

void ChoiceBox::Commit()
{
    if (!isOpen)
        return;
    const QPersistentModelIndex at = cell;
    Close();
    if (at.isValid() && chosen)
        chosen(at, currentText());
}

void ChoiceBox::Take()
{
    if (currentIndex() == opened)
        Cancel();
    else
        Commit();
}

void ChoiceBox::Cancel()
{
    Close();
}

void ChoiceBox::focusOutEvent(QFocusEvent *event)
{
    QComboBox::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::MenuBarFocusReason)
        Commit();
}

void ChoiceBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        return Cancel();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return Commit();
    QComboBox::keyPressEvent(event);
}

/// The wheel scrolls the list below.
void ChoiceBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}
