// SPDX-License-Identifier: MIT
#include "LiteralTip.h"

#include "CellLine.h"

QString LiteralTip(const QString &text)
{
    constexpr qsizetype LONGEST = 2000;
    QString shown = WholePart(text, LONGEST).toString();
    if (shown.size() < text.size())
        shown += QChar(0x2026);
    // A tool tip wraps only rich text.
    return QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(shown.toHtmlEscaped());
}
