// SPDX-License-Identifier: MIT
#include "CheckSettings.h"
#include "Placeholders.h"
#include "TextContext.h"
#include "TextFeatures.h"
#include "TextRules.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// Returns whether a text has three letters in a row outside of placeholders and escape sequences, other than in short
/// words of capitals such as "USB".
bool HasWord(QStringView text, quint32 kinds)
{
    constexpr qsizetype SHORTEST = 3;
    constexpr qsizetype LONGEST_ACRONYM = 4;
    for (qsizetype at = 0; at < text.size();) {
        if (const qsizetype markup = MarkupSizeAt(text, at, kinds); markup > 0) {
            at += markup;
            continue;
        }
        qsizetype end = at;
        while (end < text.size() && (text[end].isLetter() || text[end].isMark()))
            ++end;
        const QStringView word = text.sliced(at, end - at);
        const bool isAcronym = word.size() <= LONGEST_ACRONYM &&
                               std::all_of(word.begin(), word.end(), [](QChar c) { return c.isUpper(); });
        if (word.size() >= SHORTEST && !isAcronym)
            return true;
        at = qMax(end, at + 1);
    }
    return false;
}

/// Returns whether a thousands separator and three digits are at a place of a text, as in "1,000" or "1 000".
bool HasGroupAt(QStringView text, qsizetype at)
{
    constexpr QStringView SEPARATORS = u".,'’ \u00A0\u202F\u066C";
    constexpr qsizetype GROUP = 3;
    if (at + GROUP >= text.size() || !SEPARATORS.contains(text[at]))
        return false;
    const QStringView group = text.sliced(at + 1, GROUP);
    const bool isLonger = at + 1 + GROUP < text.size() && text[at + 1 + GROUP].isDigit();
    return !isLonger && std::all_of(group.begin(), group.end(), [](QChar c) { return c.isDigit(); });
}

/// The numbers of a text one after the other, without those in placeholders and escape sequences.
class Numbers
{
public:
    Numbers(QStringView searched, quint32 placeholderKinds) : text(searched), kinds(placeholderKinds) {}

    /// Goes to the next number. Returns false if there is none.
    bool Next()
    {
        while (at < text.size() && !text[at].isDigit())
            at += qMax<qsizetype>(1, MarkupSizeAt(text, at, kinds));
        const qsizetype start = at;
        while (at < text.size() && (text[at].isDigit() || HasGroupAt(text, at)))
            ++at;
        number = start < at ? text.sliced(start, at - start) : QStringView();
        return !number.isEmpty();
    }
    [[nodiscard]] QStringView Number() const { return number; }

private:
    QStringView text;
    quint32 kinds;
    qsizetype at = 0;
    QStringView number;
};

/// A hash of the values of a number's digits, whatever their script and separators.
quint64 ValueOf(QStringView number)
{
    quint64 value = 1;
    for (const QChar c : number)
        value = c.isDigit() ? value * 11 + quint64(c.digitValue()) : value;
    return value;
}

/// The numbers of a text, sorted.
QVarLengthArray<quint64, 32> ValuesOf(QStringView text, quint32 kinds)
{
    QVarLengthArray<quint64, 32> values;
    Numbers numbers(text, kinds);
    while (numbers.Next())
        values.append(ValueOf(numbers.Number()));
    std::sort(values.begin(), values.end());
    return values;
}

/// Returns the last number of a text with that value.
QStringView NumberWith(quint64 value, QStringView text, quint32 kinds)
{
    QStringView found;
    Numbers numbers(text, kinds);
    while (numbers.Next())
        found = ValueOf(numbers.Number()) == value ? numbers.Number() : found;
    return found;
}

/// Returns the letter that a text begins with, behind punctuation; null if it begins with anything else, such as a
/// placeholder.
QChar FirstLetter(QStringView text, quint32 kinds)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at].isLetter())
            return text[at];
        if (text[at].isDigit() || text[at].isSurrogate() || MarkupSizeAt(text, at, kinds) > 0)
            break;
    }
    return {};
}

} // namespace

QString SameAsSource(const TextPair &pair, const TextContext &context)
{
    if (!pair.IsTranslation() || pair.text != pair.source || pair.notes.isSame)
        return {};
    const QStringView primary = pair.language.Primary();
    if (!primary.isEmpty() && primary == pair.sourceLanguage.Primary())
        return {}; // English of two countries
    const quint32 kinds = PlaceholderKindsOf(pair.source, context.Settings().placeholders);
    return HasWord(pair.text, kinds) ? u"equal to the text of %1"_s.arg(pair.sourceLanguage.name) : QString();
}

QString NumberMismatch(const TextPair &pair, const TextContext &context)
{
    if (!pair.IsTranslation())
        return {};
    const quint32 kinds = PlaceholderKindsOf(pair.source, context.Settings().placeholders);
    const auto expected = ValuesOf(pair.source, kinds);
    const auto present = ValuesOf(pair.text, kinds);
    const auto [wanted, found] = std::mismatch(expected.begin(), expected.end(), present.begin(), present.end());
    if (wanted == expected.end() && found == present.end())
        return {};
    if (wanted == expected.end() || (found != present.end() && *found < *wanted)) {
        return u"%2 doesn't have the number %1"_s.arg(NumberWith(*found, pair.text, kinds), pair.sourceLanguage.name);
    }
    return u"the number %1 is missing; %2 has it"_s.arg(NumberWith(*wanted, pair.source, kinds),
                                                        pair.sourceLanguage.name);
}

QString CaseStart(const TextPair &pair, const TextContext &context)
{
    if (!pair.IsTranslation() || pair.language.Primary() == u"de" || pair.sourceLanguage.Primary() == u"de")
        return {};
    const quint32 kinds = PlaceholderKindsOf(pair.source, context.Settings().placeholders);
    const QChar source = FirstLetter(pair.source, kinds);
    const QChar text = FirstLetter(pair.text, kinds);
    const auto hasCase = [](QChar c) { return c.isUpper() || c.isLower(); };
    if (!hasCase(source) || !hasCase(text) || source.isUpper() == text.isUpper())
        return {};
    return text.isUpper() ? u"begins with a capital letter, and %1 doesn't"_s.arg(pair.sourceLanguage.name)
                          : u"begins with a small letter, and %1 doesn't"_s.arg(pair.sourceLanguage.name);
}
