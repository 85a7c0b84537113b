// SPDX-License-Identifier: MIT
#include "RowTexts.h"

#include "Resources.h"
#include "StringFileFormat.h"
#include "TextContext.h"

#include <QHashFunctions>

#include <algorithm>

RowTexts::RowTexts(const TextContext &textContext) : context(textContext), texts(textContext.Languages().size()) {}

void RowTexts::Take(const CStringRes &head)
{
    std::fill(texts.begin(), texts.end(), QStringView());
    size_t next = 0; // the records are usually in the order of the languages
    const auto take = [&](const CStringRes &record) {
        if (record.language == StringFileFormat::DESCRIPTION)
            return;
        const bool isNext = next < texts.size() && context.Languages()[next].number == record.language;
        const int place = isNext ? int(next) : context.PlaceOf(record.language);
        if (place < 0)
            return;
        texts[size_t(place)] = record.text;
        next = size_t(place) + 1;
    };
    for (const CStringRes *record = &head; record; record = record->next)
        take(*record);
    for (const CStringRes *record = head.prev; record; record = record->prev)
        take(*record);
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
