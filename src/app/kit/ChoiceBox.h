// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QPersistentModelIndex>

#include <functional>

class CListGrid;

/// A drop-down list of choices that is placed over a cell of a list. A list has one for all its cells; it is hidden
/// while the user isn't choosing.
///
/// It commits and closes when the user chooses an entry, even the same one, presses Enter, or moves the focus
/// elsewhere. Esc discards the choice. The box moves with its cell and ignores the wheel.
class ChoiceBox : public QComboBox
{
public:
    /// The list owns the box.
    ChoiceBox(CListGrid &listGrid, const QStringList &choices);

    /// Called when the user chooses an entry. Returns false to keep the box open. If it isn't set, any choice closes
    /// the box.
    std::function<bool(const QModelIndex &cell, const QString &choice)> picked;
    /// Called with the chosen entry when the box closes, unless by Esc. The box is hidden by then.
    std::function<void(const QPersistentModelIndex &cell, const QString &choice)> chosen;

    /// Opens over the cell, at the first entry that begins with `text`, ignoring case. Returns false and stays closed
    /// if the whole cell can't be seen.
    bool Open(const QModelIndex &cell, const QString &text);
    /// Closes the box and reports the choice. Does nothing if it isn't open.
    void Commit();
    /// Closes the box, and reports the choice only if it isn't the one that the box opened with. For when something
    /// other than the user ends the choosing.
    void Take();
    /// Closes the box and discards the choice.
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
