// SPDX-License-Identifier: MIT
#include "DetailsText.h"

#include <cmath>

namespace
{

constexpr int LINES = 4;
constexpr int LEAST_LINES = 2;
constexpr qsizetype AT_ONCE = 4000; // characters; more than fit into the strip
constexpr int REST_MS = 300;

/// Returns whether a text has a very long run without blanks. Wrapping it between words takes seconds, because each
/// line searches for the end of the word.
bool HasLongRun(QStringView text)
{
    qsizetype blank = -1;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace())
            blank = i;
        else if (i - blank > AT_ONCE)
            return true;
    }
    return false;
}

} // namespace

DetailsText::DetailsText(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setPlaceholderText(QStringLiteral("No text"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    rest.setSingleShot(true);
    rest.setInterval(REST_MS);
    connect(&rest, &QTimer::timeout, this, [this] { ShowRest(); });
}

void DetailsText::Show(const QString &shownText, Qt::LayoutDirection direction, const QString &name)
{
    setAccessibleName(name);
    setLayoutDirection(direction); // for the scroll bar
    QTextOption option = document()->defaultTextOption();
    if (shownText == whole && option.textDirection() == direction)
        return; // keeps the selection
    rest.stop();
    clear(); // so that changing the options doesn't cause a layout
    option.setTextDirection(direction);
    // AlignLeft alone would depend on the direction: it means left with AlignAbsolute only.
    option.setAlignment(direction == Qt::RightToLeft ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeft);
    option.setWrapMode(HasLongRun(shownText) ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDefaultTextOption(option);
    setWordWrapMode(option.wrapMode());
    whole = shownText;
    shown = qMin(whole.size(), AT_ONCE);
    while (shown < whole.size() && (whole[shown].isLowSurrogate() || whole[shown] == u'\n'))
        --shown; // doesn't split a character or a line end
    setPlainText(whole.first(shown));
    if (shown < whole.size())
        rest.start();
}

/// Shows the whole text. Keeps the selection and the scroll position.
void DetailsText::ShowRest()
{
    rest.stop();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(whole.sliced(std::exchange(shown, whole.size())));
}

void DetailsText::focusInEvent(QFocusEvent *event)
{
    if (rest.isActive())
        ShowRest(); // before the user can copy from it
    QPlainTextEdit::focusInEvent(event);
}

QSize DetailsText::SizeFor(int lines) const
{
    constexpr int LETTERS = 16;
    const QFontMetricsF metrics(font());
    const double edge = 2 * (frameWidth() + document()->documentMargin());
    return {int(metrics.averageCharWidth()) * LETTERS, int(std::ceil(lines * metrics.lineSpacing() + edge))};
}

QSize DetailsText::sizeHint() const
{
    return SizeFor(LINES);
}

QSize DetailsText::minimumSizeHint() const
{
    return SizeFor(LEAST_LINES);
}
