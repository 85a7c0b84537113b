// SPDX-License-Identifier: MIT
#include "Phases.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <unordered_map>

namespace
{

constexpr quint32 NUMBER_BITS = 0xFFFF;
constexpr quint64 RECORD = 8;      // ID, offset
constexpr size_t TEXTS_AHEAD = 16; // the number of texts to prefetch while one is copied

/// The parts of a string that a table needs.
struct TableString
{
    const char16_t *text;
    quint32 units;
    quint32 id;
};

/// The strings of a language, gathered for its table.
struct LanguageStrings
{
    qint32 language;
    CBaseRes *next;
    std::vector<TableString> strings;
    quint64 bytes = 0;      // of their texts in the table
    bool withoutId = false; // some string has no ID
};

/// The bytes of a text in the table.
quint64 Space(quint64 units)
{
    return RoundUpTo4(2 * units + 2);
}

void TakeNext(LanguageStrings &from)
{
    const auto *res = static_cast<const CStringRes *>(from.next);
    from.next = from.next->NextInFolder();
    from.withoutId |= !res->Id();
    const QStringView text = res->Text();
    from.strings.push_back({text.utf16(), quint32(text.size()), res->Id() ? res->Id()->value : 0});
    from.bytes += Space(quint64(text.size()));
}

/// The first folder of each language, as FindFolder(KIND_LANGUAGE, language, 2) finds it.
std::unordered_map<qint32, const CResFolder *> LanguageFolders(const CResFolder &root)
{
    std::unordered_map<qint32, const CResFolder *> found;
    const auto look = [&found](const CResFolder &folder) {
        if (folder.kind == KIND_LANGUAGE)
            found.try_emplace(folder.index, &folder);
    };
    for (const auto &top : root.subfolders) {
        look(*top);
        for (const auto &folder : top->subfolders)
            look(*folder);
    }
    return found;
}

/// Gathers the strings of all languages, row by row, since the strings of one row are next to each other in memory.
/// Gathering one language after the other would wait for memory at every string.
std::vector<LanguageStrings> Gather(const CResModel &document, const CResFolder &strings)
{
    std::vector<LanguageStrings> languages;
    const std::unordered_map<qint32, const CResFolder *> folders = LanguageFolders(document.root);
    // The first is the column of descriptions.
    for (size_t n = 1; n < strings.subfolders.size(); ++n) {
        const qint32 language = strings.subfolders[n]->index;
        const auto place = folders.find(language);
        const CResFolder *const folder = place == folders.end() ? nullptr : place->second;
        languages.push_back({language, folder ? folder->resources.First() : nullptr, {}});
        languages.back().strings.reserve(folder ? folder->resources.Count() : 0);
    }
    for (bool more = true; more;) {
        more = false;
        for (LanguageStrings &language : languages) {
            if (language.next)
                TakeNext(language);
            more |= language.next != nullptr;
        }
    }
    return languages;
}

/// Builds the table of the strings as the last item of `image`:
///
///   count (4)                           S + 1
///   records of ID (4), offset (4)       S in the order of `from`, then 0xFFFFFFFF and the table's size; offsets count
///   from the table strings                             UTF-16, a zero unit, zero bytes up to a multiple of 4
///
/// With `isSizeOnly` only its size is right. Returns 0 or a PackCode.
int BuildStringTable(const LanguageStrings &from, PackImage &image, bool isSizeOnly)
{
    if (from.withoutId)
        return PACK_STRING_LIST;
    const size_t count = from.strings.size();
    const quint64 head = 4 + RECORD * (quint64(count) + 1);
    if (!image.Fits(head + from.bytes))
        return PACK_STRING_TABLE;
    if (isSizeOnly) {
        image.Skip(head + from.bytes);
        return PACK_OK;
    }
    char *const table = image.Extend(head + from.bytes);
    if (!table)
        return PACK_STRING_TABLE;
    qToLittleEndian(quint32(count + 1), table);

    char *record = table + 4;
    char *place = table + head;
    for (size_t n = 0; n < count; ++n) {
        if (n + TEXTS_AHEAD < count)
            __builtin_prefetch(from.strings[n + TEXTS_AHEAD].text);
        const TableString &string = from.strings[n];
        qToLittleEndian(string.id, record);
        qToLittleEndian(quint32(place - table), record + 4);
        record += RECORD;

        const quint64 space = Space(string.units);
        std::memset(place + space - 4, 0, 4); // the text may then overwrite the first half of these bytes
        if (string.units > 0)                 // an empty text has no address
            qToLittleEndian<char16_t>(string.text, qsizetype(string.units), place);
        place += space;
    }
    qToLittleEndian(quint32(0xFFFFFFFF), record);
    qToLittleEndian(quint32(place - table), record + 4);
    return PACK_OK;
}

int AddLanguage(PackContext &context, const LanguageStrings &strings)
{
    Environment &env = context.Env();
    env.WriteOutput("\r\nLanguage ID: %d", strings.language);
    // With all of these bits set the key would be the one that ends the table.
    if (strings.language < 0 || (quint32(strings.language) & NUMBER_BITS) == NUMBER_BITS) {
        env.WriteOutput("\r\n[error] Illegal language ID: %d.", strings.language);
        return PACK_LANGUAGE_NUMBER;
    }
    context.image.AddItem(LANGUAGE_KEY | (quint32(strings.language) & NUMBER_BITS), ITEM_STRINGS);
    const int code = BuildStringTable(strings, context.image, context.trial != nullptr);
    if (code == PACK_STRING_TABLE)
        env.WriteOutput("\r\n[error] Construct string resource fail : language ID: %d.", strings.language);
    return code;
}

} // namespace

int ConstructLanguages(PackContext &context)
{
    const CResFolder *strings = context.document.root.FindFolder(KIND_STRINGS, 2);
    if (!strings)
        return PACK_LANGUAGE_LIST;
    for (LanguageStrings &language : Gather(context.document, *strings)) {
        if (context.info.options.sorted)
            std::stable_sort(language.strings.begin(), language.strings.end(),
                             [](const TableString &a, const TableString &b) { return a.id < b.id; });
        if (const int code =
                context.After(AddLanguage(context, language), QStringLiteral("language %1").arg(language.language)))
            return code;
    }
    return PACK_OK;
}
