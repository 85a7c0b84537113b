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

/// The features of a character from U+0080 on.
quint32 FeaturesOf(char16_t unit, QStringView text, qsizetype at)
{
    quint32 features = unit > 0xFF ? quint32(HAS_BEYOND_LATIN) : 0;
    const QChar c(unit);
    if (c.isSurrogate()) {
        const bool isPair = c.isHighSurrogate() ? at + 1 < text.size() && text[at + 1].isLowSurrogate()
                                                : at > 0 && text[at - 1].isHighSurrogate();
        return isPair ? features : features | HAS_CONTROL;
    }
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
        return features | HAS_CONTROL;
    case QChar::Number_DecimalDigit:
        return features | HAS_DIGIT;
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
