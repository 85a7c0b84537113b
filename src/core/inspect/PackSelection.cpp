// SPDX-License-Identifier: MIT
#include "PackSelection.h"

#include "Environment.h"
#include "Inspect.h"
#include "PackNames.h"

std::optional<PackSelection> PackSelection::Parse(const QString &word, const PackNames &names)
{
    constexpr QStringView LANGUAGE = u"language:";
    PackSelection selection;
    bool isNumber = true;
    if (word.startsWith(LANGUAGE)) {
        selection.language = word.sliced(LANGUAGE.size()).toUInt(&isNumber);
        return isNumber ? std::optional(selection) : std::nullopt;
    }
    const quint32 number = word.toUInt(&isNumber);
    selection.item = isNumber ? std::optional(number) : names.NumberOf(word);
    selection.entry = word;
    return selection;
}

bool PackSelection::Has(const PackedPart &part) const
{
    if (language)
        return part.language == int(*language);
    return (part.kind == PartKind::Item && item == part.number) || (part.kind == PartKind::Entry && part.name == entry);
}

bool PackSelection::KeepOnly(const Environment &env, InspectResult &result) const
{
    Payload &payload = result.payload;
    result.isSelection = true;
    std::erase_if(payload.entries,
                  [&](const DirectoryEntry &one) { return language || env.NarrowToWide(one.name) != entry; });
    std::erase_if(payload.block, [&](const BlockEntry &one) {
        return language ? one.key != (LANGUAGE_KEY | *language) : item != one.key;
    });
    std::erase_if(payload.languages, [&](const LanguageStrings &one) { return language != one.language; });
    return !payload.entries.empty() || !payload.block.empty() || !payload.languages.empty();
}

SelectedDiff SelectRows(const std::vector<DiffRow> &rows, const std::vector<PackedPart> &before,
                        const PackSelection &ofBefore, const std::vector<PackedPart> &after,
                        const PackSelection &ofAfter)
{
    SelectedDiff selected;
    const auto count = [&selected](const PackedPart &part, qint64 &size) {
        size += part.bytes.size();
        selected.isEmpty = false;
    };
    for (const PackedPart &part : before) {
        if (ofBefore.Has(part))
            count(part, selected.before);
    }
    for (const PackedPart &part : after) {
        if (ofAfter.Has(part))
            count(part, selected.after);
    }
    for (const DiffRow &row : rows) {
        const bool hasBefore = row.before && ofBefore.Has(*row.before);
        const bool hasAfter = row.after && ofAfter.Has(*row.after);
        if (!hasBefore && !hasAfter)
            continue;
        selected.rows.push_back(row);
        selected.before += hasBefore ? 0 : row.Before();
        selected.after += hasAfter ? 0 : row.After();
    }
    return selected;
}
