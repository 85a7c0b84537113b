// SPDX-License-Identifier: MIT
#include "CInfoPane.h"

#include "Actions.h"
#include "ViewMenu.h"

#include <QContextMenuEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextOption>
#include <QTimer>

namespace
{

constexpr qsizetype PIECE = 16 << 10; // characters; takes a few milliseconds to show

constexpr ViewMenuEntry MENU[] = {
    {ACTION_COPY, "&Copy"},
    {ACTION_SELECT_ALL, "Select &All"},
    {ACTION_CLEAR_OUTPUT, "Clea&r All"},
};

} // namespace

CInfoPane::CInfoPane(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    QTextOption direction = document()->defaultTextOption();
    direction.setTextDirection(Qt::LeftToRight); // for whole lines, even with right-to-left names
    document()->setDefaultTextOption(direction);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setAccessibleName(QStringLiteral("Output"));
    // The selection remains visible while the focus is elsewhere.
    QPalette colors = palette();
    colors.setBrush(QPalette::Inactive, QPalette::Highlight, colors.brush(QPalette::Active, QPalette::Highlight));
    colors.setBrush(QPalette::Inactive, QPalette::HighlightedText,
                    colors.brush(QPalette::Active, QPalette::HighlightedText));
    setPalette(colors);
}

void CInfoPane::Append(QStringView text)
{
    if (pending.empty() || (pending.back().size() >= PIECE && pending.back().endsWith(u'\n')))
        pending.emplace_back();
    pending.back() += text;
    ShowLater();
}

void CInfoPane::ShowLater()
{
    if (isWaiting || pending.empty())
        return;
    isWaiting = true;
    QTimer::singleShot(0, this, [this] {
        isWaiting = false;
        ShowPiece();
        ShowLater();
    });
}

void CInfoPane::ShowPiece()
{
    if (pending.empty())
        return;
    const QString piece = std::move(pending.front());
    pending.pop_front();
    Show(piece);
}

void CInfoPane::Flush()
{
    while (!pending.empty())
        ShowPiece();
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

std::optional<ActionState> CInfoPane::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_COPY:
        return ActionState{textCursor().hasSelection()};
    case ACTION_SELECT_ALL:
    case ACTION_CLEAR_OUTPUT:
        return ActionState{!document()->isEmpty()};
    default:
        return std::nullopt;
    }
}

void CInfoPane::Run(ActionId id)
{
    switch (id) {
    case ACTION_COPY:
        copy();
        break;
    case ACTION_SELECT_ALL:
        selectAll();
        ensureCursorVisible();
        break;
    case ACTION_CLEAR_OUTPUT:
        pending.clear();
        clear();
        break;
    default:
        break;
    }
}

/// Copies only plain text.
QMimeData *CInfoPane::createMimeDataFromSelection() const
{
    auto *const plain = new QMimeData;
    plain->setText(textCursor().selection().toPlainText());
    return plain;
}

void CInfoPane::contextMenuEvent(QContextMenuEvent *event)
{
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        QTextCursor start(document());
        start.setPosition(textCursor().selectionStart());
        const QPoint caret = cursorRect(start).bottomLeft(); // may be out of sight
        place = viewport()->mapToGlobal(
            QPoint(qBound(0, caret.x(), viewport()->width() - 1), qBound(0, caret.y(), viewport()->height() - 1)));
    }
    RunViewMenu(
        *this, MENU, place, [this](ActionId id) { return *StateOf(id); }, [this](ActionId id) { Run(id); });
}
