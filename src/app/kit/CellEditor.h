// SPDX-License-Identifier: MIT
#pragma once

#include "CellStep.h"

#include <QLineEdit>
#include <QPersistentModelIndex>

#include <functional>

class CListGrid;
class LineEndGuard;

/// A line edit that is placed over a cell of a list to edit its text. A list has one for all its cells; it is hidden
/// while nothing is edited.
///
/// Enter, a step to another cell, the loss of the focus, scrolling and any change of size commit the typed text; Esc
/// discards it. Opening a menu doesn't end the editing, because the Edit menu applies to the editor's text. Line ends
/// in text that is pasted, dropped or composed become blanks.
class CellEditor : public QLineEdit
{
public:
    /// The list owns the editor.
    explicit CellEditor(CListGrid &listGrid);

    /// Called when a text is committed that differs from that of `Open`. The editor is hidden by then. Returns false if
    /// the text is refused.
    std::function<bool(const QPersistentModelIndex &cell, const QString &text)> committed;
    /// Returns the cell that a step leads to. If it returns nothing, the editor is left as it is. Otherwise the text is
    /// committed, and then `arrived` is called with the cell's numbers from before the commit.
    std::function<std::optional<CellAt>(const QModelIndex &cell, CellStep step)> target;
    std::function<void(CellAt cell)> arrived;
    /// Called after Ctrl+Enter has committed the text. If it isn't set, Ctrl+Enter does the same as Enter.
    std::function<void(CellAt cell)> committedToGoOn;

    /// Scrolls the cell into view and opens over it with all of its text selected. The user can type up to `limit`
    /// characters, or up to the length of the text if that is longer. Returns false and stays closed if the whole cell
    /// can't be seen.
    bool Open(const QModelIndex &cell, const QString &text, int limit, Qt::LayoutDirection direction = Qt::LeftToRight);
    /// Closes the editor and commits the typed text. Does nothing if it isn't open. Returns false if the text was
    /// refused.
    bool Commit();
    /// Closes the editor and discards the typed text.
    void Cancel();
    [[nodiscard]] bool IsOpen() const { return isOpen; }
    /// The cell that is edited; invalid once its row has gone.
    [[nodiscard]] const QPersistentModelIndex &Cell() const { return edited; }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Step(CellStep step);
    void Close();

    CListGrid &grid;
    LineEndGuard *const line;
    QPersistentModelIndex edited;
    QString before;
    bool isOpen = false;
    bool isOpening = false;
};
