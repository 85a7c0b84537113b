// SPDX-License-Identifier: MIT
#include "Placeholders.h"

#include "CheckSettings.h"
#include "Escapes.h"

#include <algorithm>

namespace
{

constexpr int MOST_ARGUMENTS = 99;

/// The types of arguments. Each is one of the first group, with flags and a size of the others.
enum ArgumentType : quint16
{
    TYPE_INTEGER = 1,
    TYPE_DOUBLE,
    TYPE_CHARACTER,
    TYPE_STRING,
    TYPE_POINTER,
    TYPE_COUNT,
    TYPE_UNSIGNED = 0x10,
    LENGTH_CHAR = 0x100,
    LENGTH_SHORT = 0x200,
    LENGTH_LONG = 0x300,
    LENGTH_LONG_LONG = 0x400,
    LENGTH_MAX = 0x500,
    LENGTH_SIZE = 0x600,
    LENGTH_DIFFERENCE = 0x700,
};

constexpr bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Reads a decimal number and moves `at` behind it. Returns -1 without a digit.
int TakeNumber(QStringView text, qsizetype &at)
{
    if (at >= text.size() || !IsDigit(text[at]))
        return -1;
    int number = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        number = qMin(number * 10 + text[at].unicode() - u'0', 100000);
    return number;
}

/// Reads "N$". Returns 0 if there is none, and doesn't move `at` then.
int TakeArgumentNumber(QStringView text, qsizetype &at)
{
    qsizetype end = at;
    const int number = TakeNumber(text, end);
    if (number < 1 || end >= text.size() || text[end] != u'$')
        return 0;
    at = end + 1;
    return number;
}

/// Reads a number or "*". Adds the argument of a "*".
void TakeSize(QStringView text, qsizetype &at, PrintfPlaceholder::Argument &argument)
{
    if (at < text.size() && text[at] == u'*') {
        ++at;
        argument = {TYPE_INTEGER, TakeArgumentNumber(text, at)};
    } else {
        (void)TakeNumber(text, at);
    }
}

quint16 TakeLengthModifier(QStringView text, qsizetype &at)
{
    const auto take = [&](char16_t letter) {
        const bool isThere = at < text.size() && text[at] == letter;
        at += isThere ? 1 : 0;
        return isThere;
    };
    if (at >= text.size())
        return 0;
    switch (text[at++].unicode()) {
    case u'h':
        return take(u'h') ? LENGTH_CHAR : LENGTH_SHORT;
    case u'l':
        return take(u'l') ? LENGTH_LONG_LONG : LENGTH_LONG;
    case u'q':
    case u'L':
        return LENGTH_LONG_LONG;
    case u'j':
        return LENGTH_MAX;
    case u'z':
    case u'Z':
        return LENGTH_SIZE;
    case u't':
        return LENGTH_DIFFERENCE;
    default:
        --at;
        return 0;
    }
}

constexpr bool IsFlag(QChar c)
{
    return c == u' ' || c == u'+' || c == u'-' || c == u'#' || c == u'0' || c == u'\'';
}

/// Returns the type that a conversion takes; 0 if there is no such conversion.
quint16 TypeOf(QChar conversion, quint16 size)
{
    const bool isLong = size == LENGTH_LONG || size == LENGTH_LONG_LONG;
    switch (conversion.unicode()) {
    case u'd':
    case u'i':
        return TYPE_INTEGER | size;
    case u'o':
    case u'u':
    case u'x':
    case u'X':
        return TYPE_INTEGER | TYPE_UNSIGNED | size;
    case u'e':
    case u'E':
    case u'f':
    case u'F':
    case u'g':
    case u'G':
    case u'a':
    case u'A':
        return TYPE_DOUBLE | (size == LENGTH_LONG_LONG ? size : 0); // "%lf" is "%f"
    case u'c':
        return TYPE_CHARACTER | (isLong ? LENGTH_LONG : 0);
    case u'C':
        return TYPE_CHARACTER | LENGTH_LONG;
    case u's':
        return TYPE_STRING | (isLong ? LENGTH_LONG : 0);
    case u'S':
        return TYPE_STRING | LENGTH_LONG;
    case u'p':
        return TYPE_POINTER;
    case u'n':
        return TYPE_COUNT | size;
    default:
        return 0;
    }
}

/// Returns whether the "%" at a place, which printf would take for a placeholder that ends at `end`, is a percent sign
/// of prose: "50% of it", "% discharged", "50%-a" (Hungarian), "100%ige" (German), "50 % d'autonomie" (French).
bool IsPercentSign(QStringView text, qsizetype at, qsizetype end)
{
    const QChar flag = text[at + 1];
    const bool goesOn = end < text.size() && text[end].isLetter();
    qsizetype before = at;
    while (before > 0 && text[before - 1].isSpace())
        --before;
    const bool isBehindNumber = before > 0 && (text[before - 1].isDigit() || text[before - 1] == u'}');
    if (isBehindNumber)
        return flag == u' ' || flag == u'-' || flag == u'+' || (goesOn && before == at);
    return flag == u' ' && goesOn;
}

/// Returns the place of the "}" for the "{" before `at`; -1 if there is none nearby.
qsizetype ClosingBrace(QStringView text, qsizetype at)
{
    constexpr qsizetype FARTHEST = 2000; // so that the time for many "{" grows with their number only
    const qsizetype end = qMin(text.size(), at + FARTHEST);
    for (int open = 1; at < end; ++at) {
        if (text[at] == u'{')
            ++open;
        else if (text[at] == u'}' && --open == 0)
            return at;
    }
    return -1;
}

void AddArgument(PrintfUse &use, const PrintfPlaceholder::Argument &argument, QStringView placeholder, int &next,
                 bool &hasNumbers)
{
    if (argument.type == 0)
        return;
    hasNumbers = hasNumbers || argument.number > 0;
    use.isMixed = use.isMixed || (argument.number > 0 ? next > 0 : hasNumbers);
    const qsizetype index = argument.number > 0 ? argument.number - 1 : next++;
    if (index >= MOST_ARGUMENTS)
        return;
    if (index >= use.arguments.size())
        use.arguments.resize(index + 1);
    PrintfUse::Argument &known = use.arguments[index];
    use.isMixed = use.isMixed || (known.type != 0 && known.type != argument.type);
    if (known.type == 0)
        known = {argument.type, placeholder};
}

} // namespace

PrintfPlaceholder PrintfPlaceholderAt(QStringView text, qsizetype at)
{
    PrintfPlaceholder found;
    qsizetype end = at + 1;
    if (end < text.size() && text[end] == u'%') {
        found.size = 2;
        found.isPercent = true;
        return found;
    }
    const int number = TakeArgumentNumber(text, end);
    while (end < text.size() && IsFlag(text[end]))
        ++end;
    TakeSize(text, end, found.arguments[0]);
    if (end < text.size() && text[end] == u'.')
        TakeSize(text, ++end, found.arguments[1]);
    const quint16 size = TakeLengthModifier(text, end);
    const quint16 type = end < text.size() ? TypeOf(text[end], size) : quint16(0);
    if (type == 0 || IsPercentSign(text, at, end + 1))
        return {};
    found.arguments[2] = {type, number};
    found.size = end + 1 - at;
    return found;
}

NumberedPlaceholder NumberedPlaceholderAt(QStringView text, qsizetype at)
{
    qsizetype end = at + 1;
    if (end < text.size() && text[end] == u'L')
        ++end;
    int number = TakeNumber(text.first(qMin(text.size(), end + 2)), end);
    if (number < 0 || (end < text.size() && text[end] == u'$'))
        return {};
    return {end - at, number};
}

BracePlaceholder BracePlaceholderAt(QStringView text, qsizetype at)
{
    constexpr QStringView OTHERS = u"_.[]";
    const qsizetype start = at + 1;
    qsizetype end = start;
    while (end < text.size() && (text[end].isLetterOrNumber() || text[end].isMark() || OTHERS.contains(text[end])))
        ++end;
    if (end >= text.size())
        return {};
    const QStringView name = text.sliced(start, end - start);
    const bool hasFormat = text[end] == u':' || text[end] == u'!' || (text[end] == u',' && !name.isEmpty());
    if (text[end] != u'}' && !hasFormat)
        return {};
    const qsizetype closing = ClosingBrace(text, end);
    return closing < 0 ? BracePlaceholder() : BracePlaceholder{closing + 1 - at, name};
}

quint32 PlaceholderKindsOf(QStringView source, quint32 allowed)
{
    quint32 kinds = 0;
    bool hasFirst = false; // "%1", which isn't the beginning of something like "%1.2f"
    for (qsizetype at = 0; at < source.size(); ++at) {
        if (source[at] == u'{' && (allowed & PLACEHOLDERS_BRACES) && BracePlaceholderAt(source, at).size > 0)
            kinds |= PLACEHOLDERS_BRACES;
        if (source[at] != u'%')
            continue;
        const auto printf = allowed & PLACEHOLDERS_PRINTF ? PrintfPlaceholderAt(source, at) : PrintfPlaceholder();
        const auto numbered =
            allowed & PLACEHOLDERS_NUMBERED ? NumberedPlaceholderAt(source, at) : NumberedPlaceholder();
        if (numbered.size > 0 && numbered.number == 1 && printf.size <= numbered.size + 1)
            hasFirst = true;
        else if (printf.size > 0)
            kinds |= PLACEHOLDERS_PRINTF;
        else if (numbered.size > 0)
            kinds |= PLACEHOLDERS_NUMBERED;
        at += qMax<qsizetype>(qMax(printf.size, numbered.size) - 1, 0);
    }
    if (hasFirst)
        return kinds | PLACEHOLDERS_NUMBERED;
    return kinds & PLACEHOLDERS_PRINTF ? kinds & ~quint32(PLACEHOLDERS_NUMBERED) : kinds;
}

qsizetype MarkupSizeAt(QStringView text, qsizetype at, quint32 kinds)
{
    switch (text[at].unicode()) {
    case u'\\':
        return EscapeAt(text, at).size;
    case u'{':
        return kinds & PLACEHOLDERS_BRACES ? BracePlaceholderAt(text, at).size : 0;
    case u'%': {
        const qsizetype numbered = kinds & PLACEHOLDERS_NUMBERED ? NumberedPlaceholderAt(text, at).size : 0;
        return numbered > 0 || !(kinds & PLACEHOLDERS_PRINTF) ? numbered : PrintfPlaceholderAt(text, at).size;
    }
    default:
        return 0;
    }
}

namespace
{

/// Returns whether a character can be between the "%" and the last letter.
constexpr bool IsInsidePrintf(char16_t c)
{
    switch (c) {
    case u'h':
    case u'l':
    case u'L':
    case u'q':
    case u'j':
    case u'z':
    case u't':
    case u'.':
    case u'*':
    case u'$':
        return true;
    default:
        return IsFlag(c) || IsDigit(c);
    }
}

/// Goes to the next placeholder of any kind, or "%", that begins at `at` or behind it. Returns it without regard to
/// what is beside it, and moves `at` behind it; empty if there is none.
QStringView TakeWrittenPlaceholder(QStringView text, qsizetype &at)
{
    while (at < text.size() && text[at] != u'%' && text[at] != u'{')
        ++at;
    const qsizetype start = at;
    if (at < text.size() && text[at] == u'{') {
        while (at < text.size() && text[at] != u'}')
            ++at;
    } else if (at < text.size()) {
        ++at;
        while (at < text.size() && IsInsidePrintf(text[at].unicode()))
            ++at;
        const bool isEnd = at < text.size() && text[at] < u'\x7F' && (text[at].isLetter() || text[at] == u'%');
        at += isEnd ? 1 : 0;
        return text.sliced(start, at - start);
    }
    at = qMin(text.size(), at + 1);
    return text.sliced(start, at - start);
}

} // namespace

bool HaveSamePlaceholders(QStringView a, QStringView b)
{
    qsizetype inA = 0;
    qsizetype inB = 0;
    while (true) {
        const QStringView ofA = TakeWrittenPlaceholder(a, inA);
        if (ofA != TakeWrittenPlaceholder(b, inB))
            return false;
        if (ofA.isEmpty())
            return true;
    }
}

PrintfUse PrintfUseOf(QStringView text, bool hasNumbered)
{
    PrintfUse use;
    int next = 0;
    bool hasNumbers = false;
    for (qsizetype at = text.indexOf(u'%'); at >= 0; at = text.indexOf(u'%', at)) {
        const qsizetype numbered = hasNumbered ? NumberedPlaceholderAt(text, at).size : 0;
        const PrintfPlaceholder found = numbered > 0 ? PrintfPlaceholder() : PrintfPlaceholderAt(text, at);
        if (found.size == 0 && numbered == 0 && use.invalid < 0)
            use.invalid = at;
        use.hasPair = use.hasPair || found.isPercent;
        for (const PrintfPlaceholder::Argument &argument : found.arguments)
            AddArgument(use, argument, text.sliced(at, found.size), next, hasNumbers);
        at += qMax<qsizetype>(1, qMax(numbered, found.size));
    }
    return use;
}

NumberedUse NumberedUseOf(QStringView text)
{
    NumberedUse use;
    for (qsizetype at = text.indexOf(u'%'); at >= 0; at = text.indexOf(u'%', at + 1)) {
        const NumberedPlaceholder found = NumberedPlaceholderAt(text, at);
        if (found.size > 0)
            use.set(size_t(found.number));
    }
    return use;
}

BraceUse BraceUseOf(QStringView text)
{
    BraceUse use;
    for (qsizetype at = text.indexOf(u'{'); at >= 0; at = text.indexOf(u'{', at)) {
        const BracePlaceholder found = BracePlaceholderAt(text, at);
        if (found.size > 0 && found.name.isEmpty())
            ++use.unnamed;
        else if (found.size > 0)
            use.names.append(found.name);
        at += qMax<qsizetype>(1, found.size);
    }
    std::sort(use.names.begin(), use.names.end());
    use.names.erase(std::unique(use.names.begin(), use.names.end()), use.names.end());
    return use;
}
