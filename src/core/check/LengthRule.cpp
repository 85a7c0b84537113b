// SPDX-License-Identifier: MIT
#include "CheckSettings.h"
#include "Escapes.h"
#include "TakeCodePoint.h"
#include "Text.h"
#include "TextPair.h"
#include "TextRules.h"

using namespace Qt::StringLiterals;

namespace
{

struct TextExtent
{
    int characters = 0;
    int lines = 1;
};

/// Counts the characters of a text and its lines. A character is a code point, but marks that combine with the
/// character before and invisible characters of format don't count: they take no place of their own. A letter of India
/// that is drawn beside another (a spacing mark) does count. An escape sequence is one character. "\n" begins a line,
/// and so does each character that ends one; "\r\n" counts as one character.
TextExtent ExtentOf(QStringView text)
{
    TextExtent extent;
    for (qsizetype at = 0; at < text.size();) {
        if (text[at] == u'\\') {
            const EscapeSequence escape = EscapeAt(text, at);
            at += escape.size;
            extent.lines += escape.letter == u'n' ? 1 : 0;
            const bool isReturn = escape.letter == u'r' && text.sliced(at).startsWith(u"\\n");
            extent.characters += isReturn ? 0 : 1;
            continue;
        }
        const char32_t c = TakeCodePoint(text, at);
        const QChar::Category category = QChar::category(c);
        const bool hasPlace =
            category != QChar::Mark_NonSpacing && category != QChar::Mark_Enclosing && category != QChar::Other_Format;
        const bool isReturn = c == u'\r' && at < text.size() && text[at] == u'\n';
        extent.characters += hasPlace && !isReturn ? 1 : 0;
        extent.lines += c <= 0xFFFF && !isReturn && EndsLine(QChar(char16_t(c))) ? 1 : 0;
    }
    return extent;
}

QString Exceeded(int count, const char16_t *what, int most)
{
    return u"%1 %2, where %3 are allowed"_s.arg(QString::number(count), QStringView(what), QString::number(most));
}

} // namespace

QString TextTooLong(const TextPair &pair, const TextContext & /*context*/)
{
    const TextLimit &limit = pair.limit;
    if (limit.length == 0 && limit.lines == 0)
        return {};
    const TextExtent extent = ExtentOf(pair.text);
    if (limit.length > 0 && extent.characters > limit.length)
        return Exceeded(extent.characters, u"characters", limit.length);
    if (limit.lines > 0 && extent.lines > limit.lines)
        return Exceeded(extent.lines, u"lines", limit.lines);
    return {};
}
