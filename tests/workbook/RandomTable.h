#pragma once

#include "Cells.h"

#include <random>
#include <vector>

using namespace Qt::StringLiterals;

/// Letters for random texts; programs that read along agree on these.
inline const std::vector<QString> ALPHABETS = {
    u"abcdefgh =+'\"@,;\t\n"_s,
    u"\u00E4\u00DF\u0080\u00FF\u0001\u001F"_s,
    u"\u4F60\u597D\u0416\u05D0\u0301\uFB01"_s,
    u"\U0001F600\U00020000"_s,
    u"z\u00E9\u4F60\U0001F600"_s,
};
/// Texts that only our own pair has to agree on.
inline const QString WILD = u"\xD83D\xDE00\xDE00\xD83D\uFFFF\uFFFE\u0000\r\uFEFF"_s;

/// A text of `length` UTF-16 units, never half of a surrogate pair.
inline QString RandomText(std::mt19937 &random, const QString &alphabet, int length)
{
    const QList<uint> letters = alphabet.toUcs4();
    QString text;
    while (text.size() < length) {
        const char32_t letter = letters[random() % letters.size()];
        text += QString::fromUcs4(&letter, 1);
    }
    return text.size() == length ? text : text.chopped(2) + u'.';
}

/// Texts whose lengths make every kind of place meet the end of a record.
inline Cells RandomTable(unsigned seed, const std::vector<QString> &alphabets)
{
    std::mt19937 random(seed);
    const std::vector<int> lengths = {1, 2, 3, 40, 255, 256, 4100, 4111, 8200, 8221, 8224, 16430, 32767};
    Cells cells = {{{0, 0}, QStringLiteral("first")}}; // CSV files of others leave out what is empty before
    for (int i = 0; i < 150; ++i) {
        const int length = std::min(32767, lengths[random() % (i % 5 == 0 ? lengths.size() : 6)] + int(random() % 12));
        cells[{quint32(random() % 60), quint32(random() % 9)}] =
            RandomText(random, alphabets[random() % alphabets.size()], length);
    }
    return cells;
}
