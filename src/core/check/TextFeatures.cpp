// SPDX-License-Identifier: MIT
#include "TextFeatures.h"

#include <QChar>

#include <vector>

namespace
{

/// Returns whether a unit is in a block of 256 that has characters, other than marks, which NFC replaces or may put
/// together with the character before. It is a coarse test that has to be fast; ICU decides.
constexpr bool IsInBlockOfComposing(char16_t unit)
{
    switch (unit >> 8) {
    case 0x03: // Greek
    case 0x09: // northern India
    case 0x0A:
    case 0x0B:
    case 0x0F: // Tibetan
    case 0x11: // Korean letters
    case 0x1F: // Greek
    case 0x21: // Ohm, Kelvin, Angstrom
    case 0x23:
    case 0x2A:
    case 0xF9: // Chinese
    case 0xFA:
    case 0xFB: // Hebrew
        return true;
    case 0x20:
        return unit < 0x2002;
    default:
        return false;
    }
}

quint32 FeaturesOf(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return HAS_DIGIT;
    switch (unit) {
    case u'%':
        return HAS_PERCENT;
    case u'{':
    case u'}':
        return HAS_BRACE;
    case u'\\':
        return HAS_BACKSLASH;
    default:
        break;
    }
    quint32 features = unit > 0xFF ? quint32(HAS_BEYOND_LATIN) : 0;
    if (IsInBlockOfComposing(unit))
        features |= MAY_BE_DECOMPOSED;
    switch (QChar::category(char32_t(unit))) {
    case QChar::Other_Control:
    case QChar::Other_Format:
        return features | HAS_CONTROL;
    case QChar::Other_Surrogate: // half of a character that may be anything
        return features | MAY_BE_DECOMPOSED;
    case QChar::Number_DecimalDigit:
        return features | HAS_DIGIT;
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
        return features | MAY_BE_DECOMPOSED;
    default:
        return features;
    }
}

/// The features of each UTF-16 unit by itself. A table, because every unit of every text is looked up.
const std::vector<quint16> &UnitFeatures()
{
    static const std::vector<quint16> features = [] {
        std::vector<quint16> made(0x10000);
        for (size_t unit = 0; unit < made.size(); ++unit)
            made[unit] = quint16(FeaturesOf(char16_t(unit)));
        return made;
    }();
    return features;
}

bool HasLoneSurrogate(QStringView text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!text[at].isSurrogate())
            continue;
        if (text[at].isLowSurrogate() || at + 1 == text.size() || !text[at + 1].isLowSurrogate())
            return true;
        ++at;
    }
    return false;
}

} // namespace

quint32 FeaturesOf(QStringView text)
{
    if (text.isEmpty())
        return IS_EMPTY;
    const quint16 *const ofUnits = UnitFeatures().data();
    quint32 features = HAS_TEXT;
    quint32 hasPair = 0;
    char16_t last = 0;
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        features |= ofUnits[unit];
        hasPair |= quint32(unit == u' ') & quint32(last == u' ');
        last = unit;
    }
    if (hasPair)
        features |= HAS_BLANK_PAIR;
    if ((features & MAY_BE_DECOMPOSED) && HasLoneSurrogate(text))
        features |= HAS_CONTROL;
    if (text.front().isSpace() || text.back().isSpace())
        features |= HAS_BLANK_EDGE;
    QStringView inner = text;
    while (inner.size() > 1 && inner.back().isSpace())
        inner.chop(1);
    if (inner.back().isSpace())
        features |= IS_BLANK;
    const QChar end = inner.back();
    if (!end.isLetterOrNumber() && (end < u'\x80' || (!end.isMark() && !end.isSurrogate())))
        features |= HAS_PUNCTUATION;
    return features;
}
