// SPDX-License-Identifier: MIT
#include "TextColumns.h"

#include "StringFileFormat.h"

TextColumns::TextColumns(const StringTable &table)
{
    Set(StringFileFormat::DESCRIPTION, StringTable::DESCRIPTION_COLUMN);
    int col = StringTable::FIRST_LANGUAGE_COLUMN;
    for (const qint32 language : table.Languages())
        Set(language, col++);
}

void TextColumns::Set(qint32 language, int col)
{
    constexpr qint64 MOST_DIRECT = 256;
    const qint64 at = qint64(language) + 1;
    if (at < 0 || at >= MOST_DIRECT) {
        further.try_emplace(language, col);
        return;
    }
    if (size_t(at) >= direct.size())
        direct.resize(size_t(at) + 1, -1);
    if (direct[size_t(at)] < 0)
        direct[size_t(at)] = col;
}
