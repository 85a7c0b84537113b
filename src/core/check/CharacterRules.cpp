// SPDX-License-Identifier: MIT
#include "TextFeatures.h"
#include "TextPair.h"
#include "TextRules.h"

#include <unicode/unorm2.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

struct NamedCharacter
{
    char16_t unit;
    QStringView name;
};
constexpr NamedCharacter INVISIBLE[] = {
    {0x200B, u"zero-width blank"},
    {0x202D, u"override of the writing direction"},
    {0x202E, u"override of the writing direction"},
    {0xFEFF, u"byte order mark"},
};

/// "U+00E9".
QString CodeOf(char32_t c)
{
    return u"U+%1"_s.arg(uint(c), 4, 16, QChar(u'0')).toUpper();
}

/// Thai, Lao, Khmer and Burmese have no blanks between words. U+200B shows where a line may end.
bool HasZeroWidthBlanks(QStringView primary)
{
    constexpr QStringView LANGUAGES[] = {u"th", u"lo", u"km", u"my"};
    return std::find(std::begin(LANGUAGES), std::end(LANGUAGES), primary) != std::end(LANGUAGES);
}

} // namespace

QString ControlCharacter(const TextPair &pair, const TextContext & /*context*/)
{
    if (!(pair.features & HAS_CONTROL))
        return {};
    for (qsizetype at = 0; at < pair.text.size(); ++at) {
        const QChar c = pair.text[at];
        QStringView name;
        if (c.category() == QChar::Other_Control)
            name = u"control character";
        for (const NamedCharacter &invisible : INVISIBLE)
            name = c == QChar(invisible.unit) ? invisible.name : name;
        if (name.isEmpty() || (c == u'\u200B' && HasZeroWidthBlanks(pair.language.Primary())))
            continue;
        return u"%1 (%2) at place %3"_s.arg(CodeOf(c.unicode()), name, QString::number(at + 1));
    }
    return {};
}

QString LoneSurrogate(const TextPair &pair, const TextContext & /*context*/)
{
    if (!(pair.features & HAS_CONTROL))
        return {};
    for (qsizetype at = 0; at < pair.text.size(); ++at) {
        const QChar c = pair.text[at];
        if (!c.isSurrogate())
            continue;
        if (c.isHighSurrogate() && at + 1 < pair.text.size() && pair.text[at + 1].isLowSurrogate())
            ++at;
        else
            return u"%1 at place %2 is half of a character"_s.arg(CodeOf(c.unicode()), QString::number(at + 1));
    }
    return {};
}

QString NotNormalised(const TextPair &pair, const TextContext & /*context*/)
{
    if (!(pair.features & MAY_BE_DECOMPOSED))
        return {};
    UErrorCode error = U_ZERO_ERROR;
    const UNormalizer2 *const composed = unorm2_getNFCInstance(&error);
    const char16_t *const units = pair.text.utf16();
    const auto size = int32_t(pair.text.size());
    const UNormalizationCheckResult result = unorm2_quickCheck(composed, units, size, &error);
    if (result == UNORM_YES || (result == UNORM_MAYBE && unorm2_isNormalized(composed, units, size, &error)) ||
        U_FAILURE(error))
        return {};
    const QString right = pair.text.toString().normalized(QString::NormalizationForm_C);
    const auto [is, shouldBe] = std::mismatch(pair.text.begin(), pair.text.end(), right.begin(), right.end());
    const auto at = QString::number(is - pair.text.begin() + 1);
    if (is == pair.text.end() || shouldBe == right.end())
        return u"not in composed form at place %1"_s.arg(at);
    return u"not in composed form: %1 at place %2 should be %3"_s.arg(CodeOf(is->unicode()), at,
                                                                      CodeOf(shouldBe->unicode()));
}
