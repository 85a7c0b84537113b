// SPDX-License-Identifier: MIT
#include "TextFinder.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace
{

char16_t FoldedAscii(char16_t c)
{
    return c >= u'A' && c <= u'Z' ? char16_t(c + (u'a' - u'A')) : c;
}

/// Returns the code unit at an index of a text after case folding. Folding never changes the number of units of a
/// character.
char16_t Folded(const char16_t *text, qsizetype at)
{
    const char16_t unit = text[at];
    if (unit < 0x80)
        return FoldedAscii(unit);
    if (!QChar::isLowSurrogate(unit))
        return char16_t(QChar::toCaseFolded(char32_t(unit)));
    if (at == 0 || !QChar::isHighSurrogate(text[at - 1]))
        return unit;
    return QChar::lowSurrogate(QChar::toCaseFolded(QChar::surrogateToUcs4(text[at - 1], unit)));
}

/// Returns the characters of one unit that fold to `folded`, beginning with `folded` itself.
std::vector<char16_t> CasesOf(char16_t folded)
{
    static const auto OTHERS = [] {
        std::unordered_map<char16_t, std::vector<char16_t>> others;
        for (char32_t c = 0; c <= 0xFFFF; ++c) {
            if (const char32_t to = QChar::toCaseFolded(c); to != c)
                others[char16_t(to)].push_back(char16_t(c));
        }
        return others;
    }();
    std::vector<char16_t> cases{folded};
    if (const auto found = OTHERS.find(folded); found != OTHERS.end())
        cases.insert(cases.end(), found->second.begin(), found->second.end());
    return cases;
}

/// Returns the first index at which `text` has one of the units; `end` if there is none. The loops over a block have no
/// early exit, so that the compiler can use vector instructions for them.
template <size_t COUNT>
qsizetype NextOf(const char16_t *units, const char16_t *text, qsizetype from, const qsizetype end)
{
    constexpr qsizetype BLOCK = 16;
    const auto isOne = [units](char16_t unit) {
        bool is = false;
        for (size_t n = 0; n < COUNT; ++n)
            is |= unit == units[n];
        return is;
    };
    for (; from + BLOCK <= end; from += BLOCK) {
        char16_t any = 0;
        for (qsizetype i = 0; i < BLOCK; ++i) {
            for (size_t n = 0; n < COUNT; ++n)
                any |= char16_t(text[from + i] == units[n] ? 0xFFFF : 0);
        }
        if (any)
            break;
    }
    while (from < end && !isOne(text[from]))
        ++from;
    return from;
}

} // namespace

TextFinder::TextFinder(const QString &text, bool matchCase) : needle(text), matchesCase(matchCase)
{
    if (!matchesCase) {
        for (qsizetype at = 0; at < text.size(); ++at)
            needle[at] = Folded(reinterpret_cast<const char16_t *>(text.utf16()), at);
    }
    isAscii = std::all_of(needle.cbegin(), needle.cend(), [](QChar c) { return c.unicode() < 0x80; });
    if (needle.isEmpty())
        return;
    const std::vector<char16_t> cases = matchesCase ? std::vector{needle[0].unicode()} : CasesOf(needle[0].unicode());
    Q_ASSERT(cases.size() <= MOST_CASES);
    for (size_t n = 0; n < MOST_CASES; ++n)
        firsts[n] = cases[std::min(n, cases.size() - 1)];
    firstCount = cases.size() <= 2 ? cases.size() : MOST_CASES;
}

qsizetype TextFinder::NextFirst(const char16_t *text, qsizetype from, qsizetype end) const
{
    switch (firstCount) {
    case 1:
        return NextOf<1>(firsts.data(), text, from, end);
    case 2:
        return NextOf<2>(firsts.data(), text, from, end);
    default:
        return NextOf<MOST_CASES>(firsts.data(), text, from, end);
    }
}

bool TextFinder::IsAt(const char16_t *text) const
{
    const auto *wanted = reinterpret_cast<const char16_t *>(needle.utf16());
    for (qsizetype i = 1; i < needle.size(); ++i) {
        if (text[i] != wanted[i] && (matchesCase || Folded(text, i) != wanted[i]))
            return false;
    }
    return true;
}

qsizetype TextFinder::IndexIn(QStringView text, qsizetype from) const
{
    const qsizetype end = text.size() - needle.size() + 1; // of the indexes at which it can begin
    if (needle.isEmpty())
        return from < end ? from : -1;
    const char16_t *units = text.utf16();
    while (from < end && (from = NextFirst(units, from, end)) < end) {
        if (IsAt(units + from))
            return from;
        ++from;
    }
    return -1;
}

bool TextFinder::InAscii(QByteArrayView text) const
{
    if (!isAscii)
        return false;
    const auto isSame = [this](char byte, QChar wanted) {
        return char16_t(byte) == wanted.unicode() || (!matchesCase && FoldedAscii(char16_t(byte)) == wanted.unicode());
    };
    return std::search(text.begin(), text.end(), needle.cbegin(), needle.cend(), isSame) != text.end() ||
           needle.isEmpty();
}
