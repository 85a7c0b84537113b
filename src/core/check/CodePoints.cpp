// SPDX-License-Identifier: MIT
#include "CodePoints.h"

#include "ResModel.h"

#include <bit>

void CodePoints::Add(QStringView text)
{
    const char16_t *const units = text.utf16();
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        char32_t character = units[i];
        if (QChar::isHighSurrogate(character) && i + 1 < size && QChar::isLowSurrogate(units[i + 1])) {
            character = QChar::surrogateToUcs4(units[i], units[i + 1]);
            ++i;
        } else if (QChar::isSurrogate(character)) {
            continue;
        }
        const size_t word = character / BITS;
        if (word >= words.size())
            words.resize(word + 1);
        words[word] |= quint64(1) << (character % BITS);
    }
}

std::vector<char32_t> CodePoints::All() const
{
    std::vector<char32_t> all;
    for (size_t word = 0; word < words.size(); ++word) {
        for (quint64 bits = words[word]; bits != 0; bits &= bits - 1)
            all.push_back(char32_t(word * BITS + size_t(std::countr_zero(bits))));
    }
    return all;
}

CodePoints CodePointsOf(const CResModel &model, qint32 language)
{
    CodePoints points;
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    const CResFolder *const folder = strings ? strings->FindFolder(KIND_LANGUAGE, language, 1) : nullptr;
    if (!folder)
        return points;
    for (const CBaseRes *res : folder->resources)
        points.Add(static_cast<const CStringRes *>(res)->text);
    return points;
}

QString CodePointName(char32_t character)
{
    return QStringLiteral("U+%1").arg(QString::number(uint(character), 16).toUpper(), 4, u'0');
}
