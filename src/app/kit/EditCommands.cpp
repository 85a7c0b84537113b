#include "EditCommands.h"

#include "Commands.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>

std::optional<CommandState> EditCommandState(int command, const EditControlState &control)
{
    switch (command) {
    case CMD_UNDO:
        return CommandState{!control.readOnly && control.canUndo};
    case CMD_PASTE:
        return CommandState{!control.readOnly && control.clipboardHasText};
    case CMD_COPY:
    case CMD_CUT:
        return CommandState{control.hasSelection};
    case CMD_DELETE:
    case CMD_SELECT_ALL:
        return CommandState{};
    default:
        return std::nullopt;
    }
}

FocusedEdit::FocusedEdit()
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *before, const QWidget *now) {
        // Without a widget before or now the window isn't active; the menus have the focus again when it is.
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

QWidget *FocusedEdit::Control() const
{
    QWidget *const focus = Focus();
    const bool isEdit = qobject_cast<QLineEdit *>(focus) || qobject_cast<QPlainTextEdit *>(focus);
    return isEdit ? focus : nullptr;
}

std::optional<CommandState> FocusedEdit::StateOf(int command) const
{
    EditControlState state;
    QWidget *const control = Control();
    if (const auto *line = qobject_cast<const QLineEdit *>(control))
        state = {line->isReadOnly(), line->isUndoAvailable(), line->hasSelectedText(), false};
    else if (const auto *text = qobject_cast<const QPlainTextEdit *>(control))
        state = {text->isReadOnly(), text->document()->isUndoAvailable(), text->textCursor().hasSelection(), false};
    else
        return std::nullopt;
    if (command == CMD_PASTE && !state.readOnly)
        state.clipboardHasText = clipboard.HasText();
    return EditCommandState(command, state);
}

namespace
{

template <typename Edit> void RunIn(Edit &edit, int command)
{
    switch (command) {
    case CMD_UNDO:
        edit.undo();
        break;
    case CMD_PASTE:
        edit.paste();
        break;
    case CMD_COPY:
        edit.copy();
        break;
    case CMD_CUT:
        edit.cut();
        break;
    case CMD_SELECT_ALL:
        edit.selectAll();
        break;
    default:
        break;
    }
}

} // namespace

void FocusedEdit::Run(int command)
{
    QWidget *const control = Control();
    if (auto *line = qobject_cast<QLineEdit *>(control)) {
        if (command != CMD_DELETE)
            RunIn(*line, command);
        else if (!line->isReadOnly())
            line->del();
    } else if (auto *text = qobject_cast<QPlainTextEdit *>(control)) {
        if (command != CMD_DELETE)
            RunIn(*text, command);
        else if (!text->isReadOnly())
            text->textCursor().deleteChar();
    }
}
