#pragma once

#include <QComboBox>
#include <QPersistentModelIndex>

#include <functional>

class CListGrid;

/// A list of choices to drop down, laid over a cell of a list. One for all cells; hidden while nothing is chosen.
///
/// A choice, also of the same entry again, Enter and the loss of the focus end it; Esc drops it. It moves with its
/// cell and ignores the wheel.
class ChoiceBox : public QComboBox
{
public:
    /// Belongs to the list.
    ChoiceBox(CListGrid &listGrid, const QStringList &choices);

    /// Asked when the user chooses an entry; false keeps the box open. Where it isn't set any choice ends it.
    std::function<bool(const QModelIndex &cell, const QString &choice)> picked;
    /// Told when it ends but by Esc, with the entry that was chosen; it is hidden by then.
    std::function<void(const QPersistentModelIndex &cell, const QString &choice)> chosen;

    /// Opens over the cell with the first entry that begins with `text`, in either case. False, and closed, when the
    /// cell can't be seen whole.
    bool Open(const QModelIndex &cell, const QString &text);
    /// Closes and tells the choice. Does nothing while it isn't open.
    void Commit();
    /// Closes, and tells the choice if it isn't the one that it opened with. For what isn't the user's leaving it.
    void Take();
    /// Closes and drops the choice.
    void Cancel();
    [[nodiscard]] bool IsOpen() const { return isOpen; }

protected:
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    [[nodiscard]] bool Place();
    void Follow();
    void Pick();
    void Close();

    CListGrid &grid;
    QPersistentModelIndex cell;
    int opened = -1; // the entry that was chosen when it opened
    bool isOpen = false;
};
