// SPDX-License-Identifier: MIT
#include "EditActions.h"

#include "Actions.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>

std::optional<ActionState> EditActionState(ActionId id, const EditControlState &control)
{
    switch (id) {
    case ACTION_UNDO:
        return ActionState{!control.readOnly && control.canUndo};
    case ACTION_PASTE:
        return ActionState{!control.readOnly && control.clipboardHasText};
    case ACTION_COPY:
    case ACTION_CUT:
        return ActionState{control.hasSelection};
    case ACTION_DELETE:
    case ACTION_SELECT_ALL:
        return ActionState{};
    default:
        return std::nullopt;
    }
}

FocusedEdit::FocusedEdit()
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *before, const QWidget *now) {
        // A null widget means that the window isn't active. If the menus had the focus, they get it back with the
        // window.
        if (qobject_cast<const QMenuBar *>(now))
            behindMenus = before ? before : behindMenus.data();
        else if (now)
            behindMenus = nullptr;
    });
}

QWidget *FocusedEdit::Focus() const
{
    return behindMenus ? behindMenus.data() : QApplication::focusWidget();
}

namespace
{

bool IsEditControl(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QPlainTextEdit *>(widget);
}

} // namespace

QWidget *FocusedEdit::Control() const
{
    QWidget *const focus = Focus();
    return IsEditControl(focus) ? focus : nullptr;
}

QAbstractItemView *FocusedEdit::EditedView(const QWidget *edit)
{
    const QWidget *const viewport = IsEditControl(edit) ? edit->parentWidget() : nullptr;
    return qobject_cast<QAbstractItemView *>(viewport ? viewport->parentWidget() : nullptr);
}

void FocusedEdit::EndLabel() const
{
    QWidget *const edit = Control();
    // Doesn't move the focus, because the menus or another program may have it.
    if (const QAbstractItemView *const view = EditedView(edit)) {
        Q_EMIT view->itemDelegate()->commitData(edit);
        Q_EMIT view->itemDelegate()->closeEditor(edit);
    }
}

std::optional<ActionState> FocusedEdit::StateOf(ActionId id) const
{
    EditControlState state;
    QWidget *const control = Control();
    if (const auto *line = qobject_cast<const QLineEdit *>(control))
        state = {line->isReadOnly(), line->isUndoAvailable(), line->hasSelectedText(), false};
    else if (const auto *text = qobject_cast<const QPlainTextEdit *>(control))
        state = {text->isReadOnly(), text->document()->isUndoAvailable(), text->textCursor().hasSelection(), false};
    else
        return std::nullopt;
    if (id == ACTION_PASTE && !state.readOnly)
        state.clipboardHasText = clipboard.HasText();
    return EditActionState(id, state);
}

namespace
{

template <typename Edit> void RunIn(Edit &edit, ActionId id)
{
    switch (id) {
    case ACTION_UNDO:
        edit.undo();
        break;
    case ACTION_PASTE:
        edit.paste();
        break;
    case ACTION_COPY:
        edit.copy();
        break;
    case ACTION_CUT:
        edit.cut();
        break;
    case ACTION_SELECT_ALL:
        edit.selectAll();
        break;
    default:
        break;
    }
}

} // namespace

void FocusedEdit::Run(ActionId id)
{
    QWidget *const control = Control();
    if (auto *line = qobject_cast<QLineEdit *>(control)) {
        if (id != ACTION_DELETE)
            RunIn(*line, id);
        else if (!line->isReadOnly())
            line->del();
    } else if (auto *text = qobject_cast<QPlainTextEdit *>(control)) {
        if (id != ACTION_DELETE)
            RunIn(*text, id);
        else if (!text->isReadOnly())
            text->textCursor().deleteChar();
    }
}
