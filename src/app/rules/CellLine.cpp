// SPDX-License-Identifier: MIT
#include "CellLine.h"

#include "Text.h"

#include <algorithm>

namespace
{

constexpr QChar LINE_END(0x21B5);
constexpr QChar ELLIPSIS(0x2026);

bool IsPlain(QChar c)
{
    return !EndsLine(c) && c.category() != QChar::Other_Control;
}

/// Returns whether a text is shown as it is.
bool IsLine(QStringView text, qsizetype most)
{
    return WholePart(text, most).size() == text.size() && std::all_of(text.begin(), text.end(), IsPlain);
}

} // namespace

QStringView WholePart(QStringView text, qsizetype most)
{
    const qsizetype end = std::min(most, text.size());
    const bool isSplit = end > 0 && end < text.size() && text[end - 1].isHighSurrogate() && text[end].isLowSurrogate();
    return text.first(isSplit ? end - 1 : end);
}

QString CellLine(const QString &text, qsizetype most)
{
    return IsLine(text, most) ? text : CellLine(QStringView(text), most);
}

QString CellLine(QStringView text, qsizetype most)
{
    if (IsLine(text, most))
        return text.toString();
    const QStringView shown = WholePart(text, most);
    const bool isCut = shown.size() < text.size();
    QString line;
    line.reserve(shown.size() + 1);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const QChar c = shown[i];
        if (c == u'\r' && i + 1 < shown.size() && shown[i + 1] == u'\n')
            continue; // CR and LF are one line end
        line += EndsLine(c) ? LINE_END : IsPlain(c) ? c : QChar(u' ');
    }
    if (isCut)
        line += ELLIPSIS;
    return line;
}
