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

/// A sentence about a placeholder that only one of the texts has.
QString OnlyIn(bool isInText, QStringView placeholder, const TextPair &pair)
{
    const QStringView source = pair.sourceLanguage.name;
    return isInText ? u"%2 doesn't have %1"_s.arg(placeholder, source)
                    : u"%1 is missing; %2 has it"_s.arg(placeholder, source);
}

bool IsPercent(QStringView text, qsizetype at)
{
    return at >= 0 && at < text.size() && (text[at] == u'%' || text[at] == u'٪');
}

bool IsDigit(QStringView text, qsizetype at)
{
    return at >= 0 && at < text.size() && text[at].isDigit();
}

/// Returns whether a text has these digits as a percentage: "20%", "20 %" or, as in Turkish and Basque, "%20".
bool HasPercentage(QStringView text, QStringView digits)
{
    for (qsizetype at = text.indexOf(digits); at >= 0; at = text.indexOf(digits, at + 1)) {
        qsizetype end = at + digits.size();
        if (IsDigit(text, at - 1) || IsDigit(text, end))
            continue; // a part of another number
        if (IsPercent(text, at - 1) && PrintfPlaceholderAt(text, at - 1).size == 0)
            return true;
        if (end < text.size() && text[end].isSpace())
            ++end;
        if (IsPercent(text, end))
            return true;
    }
    return false;
}

/// Returns whether a placeholder such as "%20" or "%20s" is a percentage that the other text has too.
bool IsPercentageOf(QStringView placeholder, QStringView other)
{
    qsizetype end = 1;
    while (end < placeholder.size() && placeholder[end].isDigit())
        ++end;
    return end > 1 && HasPercentage(other, placeholder.sliced(1, end - 1));
}

QString ComparePrintf(const TextPair &pair, bool hasNumbered)
{
    const PrintfUse source = PrintfUseOf(pair.source, hasNumbered);
    const PrintfUse text = PrintfUseOf(pair.text, hasNumbered);
    const bool isForPrintf = !hasNumbered && source.IsFormat(); // otherwise a single "%" is right
    if (isForPrintf && text.isMixed)
        return u"numbered and other placeholders in one text, or two types for one number"_s;
    const qsizetype count = qMax(source.arguments.size(), text.arguments.size());
    for (qsizetype i = 0; i < count; ++i) {
        const PrintfUse::Argument expected = source.arguments.value(i);
        const PrintfUse::Argument present = text.arguments.value(i);
        if (present.type == expected.type)
            continue;
        if (present.type != 0 && expected.type != 0)
            return u"%1 where %2 has %3"_s.arg(present.text, pair.sourceLanguage.name, expected.text);
        const bool isInText = present.type != 0;
        const QStringView placeholder = isInText ? present.text : expected.text;
        if (!IsPercentageOf(placeholder, isInText ? pair.source : pair.text))
            return OnlyIn(isInText, placeholder, pair);
    }
    if (isForPrintf && text.invalid >= 0) {
        const QStringView place =
            pair.text.sliced(text.invalid).first(qMin<qsizetype>(2, pair.text.size() - text.invalid));
        return u"\"%1\" doesn't begin a placeholder; write a percent sign as %%"_s.arg(place);
    }
    return {};
}

QString CompareNumbered(const TextPair &pair)
{
    const NumberedUse source = NumberedUseOf(pair.source);
    const NumberedUse text = NumberedUseOf(pair.text);
    if (source == text)
        return {};
    for (size_t number = 0; number < source.size(); ++number) {
        if (source[number] == text[number])
            continue;
        QVarLengthArray<char16_t, 3> placeholder{u'%'};
        if (number >= 10)
            placeholder.append(char16_t(u'0' + number / 10));
        placeholder.append(char16_t(u'0' + number % 10));
        if (!IsPercentageOf(placeholder, text[number] ? pair.source : pair.text))
            return OnlyIn(text[number], placeholder, pair);
    }
    return {};
}

QString CompareBraces(const TextPair &pair)
{
    const BraceUse source = BraceUseOf(pair.source);
    const BraceUse text = BraceUseOf(pair.text);
    const auto [wanted, found] =
        std::mismatch(source.names.begin(), source.names.end(), text.names.begin(), text.names.end());
    const bool hasMore = found != text.names.end();
    if (wanted != source.names.end() && !(hasMore && *found < *wanted))
        return OnlyIn(false, u"{%1}"_s.arg(*wanted), pair);
    if (hasMore)
        return OnlyIn(true, u"{%1}"_s.arg(*found), pair);
    if (source.unnamed == text.unnamed)
        return {};
    return OccursDifferently(u"{}", text.unnamed, source.unnamed, pair);
}

} // namespace

QString PlaceholderMismatch(const TextPair &pair, const TextContext &context)
{
    if (!pair.IsTranslation() || HaveSamePlaceholders(pair.source, pair.text))
        return {};
    const quint32 allowed = context.Settings().placeholders;
    const quint32 features = pair.sourceFeatures | pair.features;
    QString wrong;
    if (features & HAS_PERCENT) {
        // A source text without placeholders doesn't show whether it is for printf or for numbered ones. So the
        // placeholders of its translation are compared as both.
        const quint32 kinds = PlaceholderKindsOf(pair.source, allowed);
        const bool hasNumbered = kinds & PLACEHOLDERS_NUMBERED;
        if (allowed & PLACEHOLDERS_PRINTF)
            wrong = ComparePrintf(pair, hasNumbered);
        if (wrong.isEmpty() && (hasNumbered || ((allowed & PLACEHOLDERS_NUMBERED) && !(kinds & PLACEHOLDERS_PRINTF))))
            wrong = CompareNumbered(pair);
    }
    if (wrong.isEmpty() && (features & HAS_BRACE) && (allowed & PLACEHOLDERS_BRACES))
        wrong = CompareBraces(pair);
    return wrong;
}
