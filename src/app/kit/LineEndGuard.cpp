// SPDX-License-Identifier: MIT
#include "LineEndGuard.h"

#include "Text.h"

#include <algorithm>

namespace
{

/// Replaces line ends by blanks. A carriage return followed by a line feed is one line end.
QString WithoutLineEnds(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
        line += EndsLine(text[i]) ? QChar(u' ') : text[i];
    }
    return line;
}

} // namespace

LineEndGuard::LineEndGuard(QLineEdit &control) : QValidator(&control), edit(control), known(control.text())
{
    edit.setValidator(this);
    connect(&edit, &QLineEdit::textChanged, this, [this](const QString &text) { known = text; });
}

void LineEndGuard::SetText(const QString &text)
{
    original = text;
    known = text;
    edit.setText(text);
}

QValidator::State LineEndGuard::validate(QString &text, int &cursor) const
{
    if (text == original) // by undo
        return Acceptable;
    // The new part is between the common beginning and the common end of the two texts.
    const qsizetype shorter = std::min(text.size(), known.size());
    qsizetype front = 0;
    while (front < shorter && text[front] == known[front])
        ++front;
    qsizetype back = 0;
    while (back < shorter - front && text[text.size() - 1 - back] == known[known.size() - 1 - back])
        ++back;
    const QString come = text.mid(front, text.size() - front - back);
    QString line = WithoutLineEnds(come);
    const qsizetype behind = front + come.size();
    const bool goesOn = behind < text.size() && text[behind].isLowSurrogate();
    if (!line.isEmpty() && line.back().isHighSurrogate() && !goesOn)
        line.chop(1);
    if (line != come) {
        text.replace(front, come.size(), line);
        cursor = int(front + line.size());
    }
    return Acceptable;
}
