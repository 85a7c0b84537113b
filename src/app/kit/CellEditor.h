#pragma once

#include "CellStep.h"

#include <QLineEdit>
#include <QPersistentModelIndex>

#include <functional>

class CListGrid;
class OneLine;

/// A line in which the text of a cell is edited, laid over the cell. One for all cells of a list; hidden while nothing
/// is edited.
///
/// Enter, a step to another cell, the loss of the focus, a scroll and any change of size commit what was typed; Esc
/// drops it. Menus don't end it: entries of the Edit menu are for its text. The end of a line that is pasted, dropped
/// or composed becomes a blank.
class CellEditor : public QLineEdit
{
public:
    /// Belongs to the list.
    explicit CellEditor(CListGrid &listGrid);

    /// Told when a text is committed that differs from that of `Open`; the editor is hidden by then. False: it was
    /// refused.
    std::function<bool(const QPersistentModelIndex &cell, const QString &text)> committed;
    /// Asked for the cell that a step leads to; nothing leaves the editor as it is. Otherwise the text is committed and
    /// then `arrived` told, with the numbers that the cell had before.
    std::function<std::optional<CellAt>(const QModelIndex &cell, CellStep step)> target;
    std::function<void(CellAt cell)> arrived;
    /// Ctrl+Enter; the text has been committed. Where it isn't set the key does what Enter does.
    std::function<void(CellAt cell)> committedToGoOn;

    /// Scrolls the cell into view and opens over it with all of its text selected. The user can type no more than
    /// `limit` characters, or the length of the text where that is longer. False, and closed, when the cell can't be
    /// seen whole.
    bool Open(const QModelIndex &cell, const QString &text, int limit, Qt::LayoutDirection direction = Qt::LeftToRight);
    /// Closes and tells what was typed. Does nothing while it isn't open. False when it was refused.
    bool Commit();
    /// Closes and drops what was typed.
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
    OneLine *const line;
    QPersistentModelIndex edited;
    QString before;
    bool isOpen = false;
    bool isOpening = false;
};
