#include "CInfoPane.h"

#include "Commands.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextOption>
#include <QTimer>

CInfoPane::CInfoPane(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    QTextOption direction = document()->defaultTextOption();
    direction.setTextDirection(Qt::LeftToRight); // of the lines: a name in them may run the other way
    document()->setDefaultTextOption(direction);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setAccessibleName(QStringLiteral("Output"));
    // What is selected stays so for the eye while the focus is elsewhere.
    QPalette colors = palette();
    colors.setBrush(QPalette::Inactive, QPalette::Highlight, colors.brush(QPalette::Active, QPalette::Highlight));
    colors.setBrush(QPalette::Inactive, QPalette::HighlightedText,
                    colors.brush(QPalette::Active, QPalette::HighlightedText));
    setPalette(colors);
}

void CInfoPane::Append(QStringView text)
{
    pending += text;
    ShowLater();
}

void CInfoPane::ShowLater()
{
    if (isWaiting || pending.isEmpty())
        return;
    isWaiting = true;
    QTimer::singleShot(0, this, [this] {
        isWaiting = false;
        ShowPiece();
    });
}

void CInfoPane::ShowPiece()
{
    constexpr qsizetype PIECE = 64 << 10;
    const qsizetype end = pending.indexOf(u'\n', taken + PIECE) + 1;
    if (end == 0)
        return Flush();
    const QString piece = pending.mid(taken, end - taken);
    taken = end;
    Show(piece);
    ShowLater();
}

void CInfoPane::Flush()
{
    // A line end may come in two pieces, which would show as two.
    const bool isCut = pending.endsWith(u'\r');
    const QString text = pending.mid(taken, pending.size() - taken - isCut);
    pending = isCut ? QStringLiteral("\r") : QString();
    taken = 0;
    Show(text);
}

void CInfoPane::Show(QString text)
{
    text.remove(u'\r');
    if (text.isEmpty())
        return;
    const QTextCursor before = textCursor();
    const int anchor = before.anchor();
    const int position = before.position();
    const bool isFollowing = !before.hasSelection() && before.atEnd();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(text);
    QTextCursor after = textCursor();
    if (isFollowing) {
        after.movePosition(QTextCursor::End);
    } else {
        after.setPosition(anchor);
        after.setPosition(position, QTextCursor::KeepAnchor);
    }
    setTextCursor(after);
    ensureCursorVisible();
}

void CInfoPane::GoToEnd()
{
    Flush();
    moveCursor(QTextCursor::End);
    ensureCursorVisible();
}

std::optional<CommandState> CInfoPane::StateOf(int command) const
{
    switch (command) {
    case CMD_COPY:
        return CommandState{textCursor().hasSelection()};
    case CMD_SELECT_ALL:
    case CMD_CLEAR_OUTPUT:
        return CommandState{!document()->isEmpty()};
    default:
        return std::nullopt;
    }
}

void CInfoPane::Run(int command)
{
    switch (command) {
    case CMD_COPY:
        copy();
        break;
    case CMD_SELECT_ALL:
        selectAll();
        ensureCursorVisible();
        break;
    case CMD_CLEAR_OUTPUT:
        pending.clear();
        taken = 0;
        clear();
        break;
    default:
        break;
    }
}

/// Plain text alone.
QMimeData *CInfoPane::createMimeDataFromSelection() const
{
    auto *const plain = new QMimeData;
    plain->setText(textCursor().selection().toPlainText());
    return plain;
}

void CInfoPane::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    for (const auto &[text, command] : {std::pair(QStringLiteral("&Copy"), CMD_COPY),
                                        {QStringLiteral("Select &All"), CMD_SELECT_ALL},
                                        {QStringLiteral("Clea&r All"), CMD_CLEAR_OUTPUT}}) {
        QAction *const action = menu.addAction(text, this, [this, command = command] { Run(command); });
        action->setEnabled(StateOf(command)->enabled);
    }
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        QTextCursor start(document());
        start.setPosition(textCursor().selectionStart());
        place = viewport()->mapToGlobal(cursorRect(start).bottomLeft());
    }
    menu.exec(place);
}
