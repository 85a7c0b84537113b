// SPDX-License-Identifier: MIT
#include "TextFeatures.h"

#include <QChar>

#include <array>

namespace
{

/// The features of each character below U+0080.
constexpr std::array<quint32, 0x80> MakeAsciiFeatures()
{
    std::array<quint32, 0x80> features{};
    for (char16_t c = 0; c < 0x80; ++c) {
        if (c < u' ' || c == 0x7F)
            features[c] = HAS_CONTROL;
    }
    features[u'%'] = HAS_PERCENT;
    features[u'{'] = features[u'}'] = HAS_BRACE;
    features[u'\\'] = HAS_BACKSLASH;
    for (char16_t c = u'0'; c <= u'9'; ++c)
        features[c] = HAS_DIGIT;
    return features;
}
constexpr std::array<quint32, 0x80> ASCII_FEATURES = MakeAsciiFeatures();

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

/// The features of a character from U+0080 on.
quint32 FeaturesOf(char16_t unit, QStringView text, qsizetype at)
{
    quint32 features = unit > 0xFF ? quint32(HAS_BEYOND_LATIN) : 0;
    if (IsInBlockOfComposing(unit))
        features |= MAY_BE_DECOMPOSED;
    const QChar c(unit);
    if (c.isSurrogate()) {
        const bool isPair = c.isHighSurrogate() ? at + 1 < text.size() && text[at + 1].isLowSurrogate()
                                                : at > 0 && text[at - 1].isHighSurrogate();
        features |= MAY_BE_DECOMPOSED;
        return isPair ? features : features | HAS_CONTROL;
    }
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
        return features | HAS_CONTROL;
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

} // namespace

quint32 FeaturesOf(QStringView text)
{
    if (text.isEmpty())
        return IS_EMPTY;
    quint32 features = HAS_TEXT;
    const char16_t *const units = text.utf16();
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t unit = units[i];
        if (unit < 0x80) {
            features |= ASCII_FEATURES[unit];
            if (unit == u' ' && i > 0 && units[i - 1] == u' ')
                features |= HAS_BLANK_PAIR;
        } else {
            features |= FeaturesOf(unit, text, i);
        }
    }
    if (text.front().isSpace() || text.back().isSpace())
        features |= HAS_BLANK_EDGE;
    qsizetype last = size - 1;
    while (last > 0 && text[last].isSpace())
        --last;
    if (!text[last].isLetterOrNumber() && !text[last].isMark() && !text[last].isSurrogate())
        features |= HAS_PUNCTUATION;
    return features;
}
