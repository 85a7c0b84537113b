// SPDX-License-Identifier: MIT
#include "RowTexts.h"

#include "ResFolder.h"
#include "StringFileFormat.h"
#include "TextContext.h"

#include <QHashFunctions>

#include <algorithm>

RowTexts::RowTexts(const TextContext &textContext) : context(textContext), texts(textContext.Languages().size()) {}

void RowTexts::Take(const CStringRes &head)
{
    std::fill(texts.begin(), texts.end(), QStringView());
    size_t next = 0; // the records are usually in the order of the languages
    (void)AnyRecord(head, [&](const CStringRes &record) {
        const qint32 language = record.Language();
        if (language == StringFileFormat::DESCRIPTION)
            return false;
        const bool isNext = next < texts.size() && context.Languages()[next].number == language;
        const int place = isNext ? int(next) : context.PlaceOf(language);
        if (place >= 0) {
            texts[size_t(place)] = record.Text();
            next = size_t(place) + 1;
        }
        return false;
    });
}

bool RowTexts::AreEmpty() const
{
    return std::all_of(texts.begin(), texts.end(), [](QStringView text) { return text.isEmpty(); });
}

size_t RowTexts::Hash() const
{
    size_t hash = 0;
    for (const QStringView text : texts)
        hash = qHash(text, hash + 1);
    return hash;
}
