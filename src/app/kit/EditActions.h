#pragma once

#include "ActionTarget.h"
#include "ClipboardText.h"

#include <QPointer>
#include <QWidget>

class QAbstractItemView;

/// What an edit control says of itself.
struct EditControlState
{
    bool readOnly = false;
    bool canUndo = false;
    bool hasSelection = false;
    bool clipboardHasText = false;
};

/// What an action of the Edit menu is while an edit control has the focus; nothing for any other action.
[[nodiscard]] std::optional<ActionState> EditActionState(ActionId id, const EditControlState &control);

/// The edit control that has the focus, if one has: Cut, Copy, Paste, Delete, Undo and Select All are then its own.
class FocusedEdit : public QObject, public IActionTarget
{
public:
    FocusedEdit();

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

    /// The widget that has the focus; while the menu bar has it, the one that gets it back.
    [[nodiscard]] QWidget *Focus() const;
    /// Takes the label that is being edited in a tree or a list, as leaving it does. Nothing where none is.
    void EndLabel() const;
    /// The list or the tree in which an edit control edits a cell or a label; null where it doesn't, and for any other
    /// widget and null.
    [[nodiscard]] static QAbstractItemView *EditedView(const QWidget *edit);
    /// The control; null when the focus is elsewhere.
    [[nodiscard]] QWidget *Control() const;

private:
    QPointer<QWidget> behindMenus;
    mutable ClipboardText clipboard;
};
