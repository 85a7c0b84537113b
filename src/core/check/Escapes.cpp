// SPDX-License-Identifier: MIT
#include "Escapes.h"

#include "TextPair.h"
#include "TextRules.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{

/// Returns how many digits of a base are at a place of a text, at most `most`.
qsizetype CountDigits(QStringView text, qsizetype at, int base, qsizetype most)
{
    const auto isDigit = [base](char16_t c) {
        return base == 8 ? c >= u'0' && c <= u'7'
                         : (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    };
    qsizetype end = at;
    while (end < text.size() && end - at < most && isDigit(text[end].unicode()))
        ++end;
    return end - at;
}

/// Those escape sequences that a translation must have as often as its source text.
constexpr QStringView COUNTED = u"ntr\"\\x";

struct EscapeCounts
{
    std::array<int, 6> counts{}; // in the order of COUNTED
    QStringView invalid;         // the first sequence that C lacks

    int &Quotes() { return counts[3]; }
};

EscapeCounts CountsOf(QStringView text)
{
    EscapeCounts found;
    for (qsizetype at = text.indexOf(u'\\'); at >= 0; at = text.indexOf(u'\\', at)) {
        const EscapeSequence escape = EscapeAt(text, at);
        if (!escape.isValid && found.invalid.isEmpty())
            found.invalid = text.sliced(at, escape.size);
        const qsizetype kind = COUNTED.indexOf(QChar(escape.letter));
        if (escape.isValid && kind >= 0)
            ++found.counts[size_t(kind)];
        at += escape.size;
    }
    return found;
}

/// Counts the quotation marks of all languages, without the apostrophe and without '"', which C has to escape.
int CountQuotes(QStringView text)
{
    constexpr QStringView QUOTES = u"«»‹›“”„‟「」『』《》〈〉＂";
    int count = 0;
    for (const QChar c : text)
        count += c.unicode() > 0x7F && QUOTES.contains(c) ? 1 : 0;
    return count;
}

} // namespace

EscapeSequence EscapeAt(QStringView text, qsizetype at)
{
    if (at + 1 >= text.size())
        return {1, 0, false};
    const char16_t letter = text[at + 1].unicode();
    const qsizetype digits = at + 2;
    switch (letter) {
    case u'a':
    case u'b':
    case u'f':
    case u'n':
    case u'r':
    case u't':
    case u'v':
    case u'\'':
    case u'"':
    case u'?':
    case u'\\':
        return {2, letter, true};
    case u'x': {
        const qsizetype count = CountDigits(text, digits, 16, text.size());
        return {2 + count, letter, count > 0};
    }
    case u'u':
        return {2 + CountDigits(text, digits, 16, 4), letter, CountDigits(text, digits, 16, 4) == 4};
    case u'U':
        return {2 + CountDigits(text, digits, 16, 8), letter, CountDigits(text, digits, 16, 8) == 8};
    default: {
        const qsizetype octal = CountDigits(text, at + 1, 8, 3);
        return octal > 0 ? EscapeSequence{1 + octal, letter, true} : EscapeSequence{2, letter, false};
    }
    }
}

QString EscapeMismatch(const TextPair &pair, const TextContext & /*context*/)
{
    if (pair.text.isEmpty())
        return {};
    EscapeCounts text = CountsOf(pair.text);
    if (!text.invalid.isEmpty())
        return u"C has no escape sequence %1"_s.arg(text.invalid);
    if (!pair.IsTranslation())
        return {};
    EscapeCounts source = CountsOf(pair.source);
    if (source.Quotes() != text.Quotes()) { // other quotation marks may take the place of \"
        source.Quotes() += CountQuotes(pair.source);
        text.Quotes() += CountQuotes(pair.text);
    }
    for (size_t i = 0; i < source.counts.size(); ++i) {
        if (source.counts[i] != text.counts[i])
            return OccursDifferently(u"\\%1"_s.arg(COUNTED[qsizetype(i)]), text.counts[i], source.counts[i], pair);
    }
    return {};
}
