// SPDX-License-Identifier: MIT
#include "CheckSettings.h"
#include "Placeholders.h"
#include "TextPair.h"
#include "TextRules.h"

using namespace Qt::StringLiterals;

namespace
{

enum class EndMark
{
    None,
    Stop,
    Ellipsis,
    Exclamation,
    Question,
    Colon,
    Semicolon,
    Comma,
    TwoStops, ///< a full stop of another script and that of English, as in "。."
    NotCompared,
};

struct MarkRow
{
    char16_t unit;
    EndMark mark;
    QStringView languages; ///< the primary subtags of the languages in which it has this meaning
};

constexpr QStringView EAST_ASIAN = u"zh ja ko yue";
constexpr QStringView ARABIC = u"ar fa ur ps ug sd ckb";
constexpr QStringView INDIC = u"hi bn pa mr ne as or sa";
constexpr QStringView ETHIOPIC = u"am ti";

constexpr MarkRow MARKS[] = {
    {u'。', EndMark::Stop, EAST_ASIAN},        {u'．', EndMark::Stop, EAST_ASIAN},
    {u'｡', EndMark::Stop, EAST_ASIAN},         {u'！', EndMark::Exclamation, EAST_ASIAN},
    {u'？', EndMark::Question, EAST_ASIAN},    {u'：', EndMark::Colon, EAST_ASIAN},
    {u'；', EndMark::Semicolon, EAST_ASIAN},   {u'，', EndMark::Comma, EAST_ASIAN},
    {u'、', EndMark::Comma, EAST_ASIAN},       {u'\u061F', EndMark::Question, ARABIC},
    {u'\u061B', EndMark::Semicolon, ARABIC},   {u'\u060C', EndMark::Comma, ARABIC},
    {u'\u06D4', EndMark::Stop, u"ur ps"},      {u';', EndMark::Question, u"el"},
    {u'\u037E', EndMark::Question, u"el"},     {u'\u0387', EndMark::Semicolon, u"el"},
    {u'\u00B7', EndMark::Semicolon, u"el"},    {u'\u0964', EndMark::Stop, INDIC},
    {u'\u0965', EndMark::Stop, INDIC},         {u'\u0589', EndMark::Stop, u"hy"},
    {u':', EndMark::NotCompared, u"hy"}, // is often typed for the Armenian full stop
    {u'\u1362', EndMark::Stop, ETHIOPIC},      {u'\u1363', EndMark::Comma, ETHIOPIC},
    {u'\u1364', EndMark::Semicolon, ETHIOPIC}, {u'\u1366', EndMark::Colon, ETHIOPIC},
    {u'\u1367', EndMark::Question, ETHIOPIC},  {u'\u104B', EndMark::Stop, u"my"},
    {u'\u17D4', EndMark::Stop, u"km"},         {u'\u17D6', EndMark::Colon, u"km"},
};

/// Returns whether a list of words, with a blank between, has a word.
bool HasWord(QStringView list, QStringView word)
{
    qsizetype start = 0;
    for (qsizetype at = 0; at <= list.size(); ++at) {
        if (at < list.size() && list[at] != u' ')
            continue;
        if (list.sliced(start, at - start) == word)
            return true;
        start = at + 1;
    }
    return false;
}

/// Returns what a character means in some languages only; `other` in all others.
EndMark MarkOf(QChar c, const CheckedLanguage &language, EndMark other)
{
    const QStringView primary = language.Primary();
    for (const MarkRow &row : MARKS) {
        if (c != QChar(row.unit))
            continue;
        const bool isAnyones = primary.isEmpty() && row.unit > 0x7F;
        if (isAnyones || (!primary.isEmpty() && HasWord(row.languages, primary)))
            return row.mark;
    }
    return other;
}

EndMark MarkOf(QChar c, const CheckedLanguage &language)
{
    switch (c.unicode()) {
    case u'.':
        return EndMark::Stop;
    case u'…':
    case u'‥':
    case u'⋯':
        return EndMark::Ellipsis;
    case u'!':
        return EndMark::Exclamation;
    case u'?':
        return EndMark::Question;
    case u':':
        return MarkOf(c, language, EndMark::Colon);
    case u';':
        return MarkOf(c, language, EndMark::Semicolon);
    case u',':
        return EndMark::Comma;
    case u')':
    case u']':
    case u'）':
    case u'］':
    case u'】':
    case u'〕':
        return EndMark::NotCompared;
    default:
        return c < u'\x80' || c.isLetterOrNumber() ? EndMark::None : MarkOf(c, language, EndMark::None);
    }
}

bool IsQuote(QChar c)
{
    if (c < u'\x80')
        return c == u'"' || c == u'\'' || c == u'`';
    constexpr QStringView OTHERS = u"´„‚＂＇」』》〉";
    const QChar::Category category = c.category();
    return category == QChar::Punctuation_InitialQuote || category == QChar::Punctuation_FinalQuote ||
           OTHERS.contains(c);
}

/// Takes the blanks, quotation marks, escape sequences of blanks and quotation marks, and invisible characters off the
/// end of a text.
QStringView WithoutTail(QStringView text)
{
    while (!text.isEmpty()) {
        const QChar last = text.back();
        const bool isEscape = text.size() >= 2 && text[text.size() - 2] == u'\\' &&
                              (last == u'n' || last == u'r' || last == u't' || last == u'"');
        if (isEscape)
            text.chop(2);
        else if (!last.isLetterOrNumber() &&
                 (last.isSpace() || IsQuote(last) || last.category() == QChar::Other_Format))
            text.chop(1);
        else
            break;
    }
    return text;
}

/// Returns whether a text, without the full stop at its end, ends with an abbreviation: a short word behind a number,
/// as in "Wait 5 min" or "25 °C", or the last of several that are all short and abbreviated or behind numbers, as in
/// "a.m" or "Std. 5 Min".
bool EndsAbbreviated(QStringView text)
{
    constexpr qsizetype LONGEST = 4;
    constexpr QStringView BETWEEN = u" \u00A0\u202F°/";
    constexpr quint32 ALL = PLACEHOLDERS_PRINTF | PLACEHOLDERS_BRACES | PLACEHOLDERS_NUMBERED;
    bool followsNumber = false;
    bool isLastShort = false;
    bool areAllShort = true;
    for (qsizetype at = 0; at < text.size();) {
        isLastShort = false;
        if (const qsizetype markup = MarkupSizeAt(text, at, ALL); markup > 0) {
            followsNumber = true;
            at += markup;
            continue;
        }
        qsizetype letters = 0;
        qsizetype end = at;
        for (; end < text.size() && (text[end].isLetter() || text[end].isMark()); ++end)
            letters += text[end].isLetter() ? 1 : 0;
        if (end == at) {
            followsNumber = text[at].isDigit() || (followsNumber && BETWEEN.contains(text[at]));
            ++at;
            continue;
        }
        const bool isCut = end == text.size() || text[end] == u'.';
        isLastShort = letters <= LONGEST && (followsNumber || areAllShort);
        areAllShort = areAllShort && letters <= LONGEST && (isCut || followsNumber);
        followsNumber = false;
        at = end;
    }
    return isLastShort;
}

struct End
{
    EndMark mark = EndMark::None;
    QStringView text;   ///< the mark as it is written
    QStringView before; ///< the text before the mark
};

End EndOf(QStringView text, const CheckedLanguage &language)
{
    const QStringView rest = WithoutTail(text);
    if (rest.isEmpty())
        return {EndMark::NotCompared, {}, {}};
    const EndMark mark = MarkOf(rest.back(), language);
    if (mark != EndMark::Stop)
        return {mark, rest.last(1), rest.chopped(1)};
    qsizetype stops = 1;
    while (stops < rest.size() && rest[rest.size() - 1 - stops] == rest.back())
        ++stops;
    const QStringView before = rest.chopped(stops);
    const bool isOfEnglish = stops == 1 && rest.back() == u'.';
    if (isOfEnglish && !before.isEmpty() && MarkOf(before.back(), language) == EndMark::Stop)
        return {EndMark::TwoStops, rest.last(2), before.chopped(1)};
    return {stops > 1 ? EndMark::Ellipsis : EndMark::Stop, rest.last(stops), before};
}

/// Thai, Lao and Khmer sentences need no mark at their end, and the Armenian ones for questions and exclamations are
/// inside the sentence.
bool MayLack(EndMark mark, const CheckedLanguage &language)
{
    const QStringView primary = language.Primary();
    if (primary == u"hy")
        return mark == EndMark::Question || mark == EndMark::Exclamation;
    return primary == u"th" || primary == u"lo" || primary == u"km";
}

bool AreEquivalent(const End &source, const End &text, const TextPair &pair)
{
    if (source.mark == text.mark || source.mark == EndMark::NotCompared || text.mark == EndMark::NotCompared)
        return true;
    if (source.mark == EndMark::Stop && text.mark == EndMark::None && EndsAbbreviated(source.before))
        return true;
    if (text.mark == EndMark::Stop && source.mark == EndMark::None && EndsAbbreviated(text.before))
        return true;
    return (text.mark == EndMark::None && MayLack(source.mark, pair.language)) ||
           (source.mark == EndMark::None && MayLack(text.mark, pair.sourceLanguage));
}

} // namespace

QString EndPunctuation(const TextPair &pair, const TextContext & /*context*/)
{
    if (!pair.IsTranslation())
        return {};
    const End source = EndOf(pair.source, pair.sourceLanguage);
    const End text = EndOf(pair.text, pair.language);
    if (AreEquivalent(source, text, pair))
        return {};
    if (text.mark == EndMark::None)
        return u"ends without the \"%1\" of %2"_s.arg(source.text, pair.sourceLanguage.name);
    if (source.mark == EndMark::None)
        return u"ends with \"%1\", and %2 doesn't"_s.arg(text.text, pair.sourceLanguage.name);
    return u"ends with \"%1\" where %2 ends with \"%3\""_s.arg(text.text, pair.sourceLanguage.name, source.text);
}
