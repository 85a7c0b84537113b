// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "ClipboardText.h"

#include <QPointer>
#include <QWidget>

class QAbstractItemView;

/// The state of an edit control.
struct EditControlState
{
    bool readOnly = false;
    bool canUndo = false;
    bool hasSelection = false;
    bool clipboardHasText = false;
};

/// The state of an action of the Edit menu while an edit control has the focus; nothing for any other action.
[[nodiscard]] std::optional<ActionState> EditActionState(ActionId id, const EditControlState &control);

/// The edit control with the focus, if there is one. It then gets Cut, Copy, Paste, Delete, Undo and Select All.
class FocusedEdit : public QObject, public IActionTarget
{
public:
    FocusedEdit();

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

    /// The widget with the focus. While the menu bar has it, the widget that will get it back.
    [[nodiscard]] QWidget *Focus() const;
    /// Commits the label that is being edited in a tree or a list, as if the user had left it. Does nothing if there is
    /// none.
    void EndLabel() const;
    /// The list or tree in which an edit control edits a cell or a label. Null if it doesn't, and for any other widget
    /// or null.
    [[nodiscard]] static QAbstractItemView *EditedView(const QWidget *edit);
    /// The edit control; null if the focus is elsewhere.
    [[nodiscard]] QWidget *Control() const;

private:
    QPointer<QWidget> behindMenus;
    mutable ClipboardText clipboard;
};
