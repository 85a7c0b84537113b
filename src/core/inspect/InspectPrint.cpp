// SPDX-License-Identifier: MIT
#include "ByteReader.h"
#include "Environment.h"
#include "Inspect.h"
#include "JsonWriter.h"
#include "ListingText.h"
#include "PackNames.h"

#include <QByteArrayList>

#include <algorithm>
#include <set>

namespace
{

QByteArray Number(quint64 number)
{
    return QByteArray::number(number);
}

/// True for a converted layout, whose header has the number of its ID.
bool IsLayout(const BlockEntry &item)
{
    constexpr quint64 ID_AT = 12;
    return item.data.startsWith("MLAY") && ByteReader(item.data).U32(ID_AT) == item.key;
}

/// The kind of an item, by the range of its key.
const char *WhatIs(const BlockEntry &item)
{
    const quint32 key = item.key;
    if (key >= LANGUAGE_KEY)
        return "strings";
    if (key >= 100000 && key < 110000) {
        static constexpr const char *PUSH[] = {"push audio",  "push video",  "push binary", "push image",
                                               "push string", "push string", "push string", "push string",
                                               "push string", "push"};
        return PUSH[(key - 100000) / 1000];
    }
    return key == 0 ? "no number" : IsLayout(item) ? "layout" : "file, image or layout";
}

/// Returns a column with the names of the numbers of a list; empty columns without names.
template <typename List, typename NumberOf>
QByteArrayList NameColumn(const List &list, const PackNames &names, NumberOf numberOf)
{
    QByteArrayList column;
    qsizetype width = 0;
    for (const auto &one : list) {
        column += OnOneLine(names.Of(numberOf(one)));
        width = std::max(width, column.last().size());
    }
    if (!names.IsEmpty()) {
        for (QByteArray &name : column)
            name = "  " + name.leftJustified(width);
    }
    return column;
}

void WriteNumber(JsonWriter &json, const char *key, quint64 number)
{
    json.Key(key);
    json.Number(qint64(number));
}

void WriteEntries(JsonWriter &json, const Environment &env, const Payload &payload)
{
    json.Key("entries");
    json.BeginArray();
    for (const DirectoryEntry &entry : payload.entries) {
        json.BeginObject();
        json.Key("name");
        json.String(WholeCharacters(env.NarrowToWide(entry.name)));
        WriteNumber(json, "offset", entry.offset);
        WriteNumber(json, "size", entry.size);
        json.EndObject();
    }
    json.EndArray();
}

void WriteBlock(JsonWriter &json, const Payload &payload, const PackNames &names)
{
    json.Key("block");
    json.BeginArray();
    for (const BlockEntry &item : payload.block) {
        json.BeginObject();
        WriteNumber(json, "key", item.key);
        WriteNumber(json, "offset", item.offset);
        WriteNumber(json, "size", item.size);
        if (const QString name = names.Of(item.key); !name.isEmpty()) {
            json.Key("id");
            json.String(name);
        }
        json.EndObject();
    }
    json.EndArray();
}

/// If a language has several tables, the first counts, as on the device.
void WriteStrings(JsonWriter &json, const Payload &payload)
{
    json.Key("strings");
    json.BeginObject();
    std::set<quint32> known;
    for (const LanguageStrings &language : payload.languages) {
        if (!known.insert(language.language).second)
            continue;
        json.Key(QString::number(language.language));
        json.BeginObject();
        for (const TableString &string : language.strings) {
            json.Key(QString::number(string.id));
            json.String(WholeCharacters(string.text));
        }
        json.EndObject();
    }
    json.EndObject();
}

/// Writes the names of the strings' IDs, by their number.
void WriteStringIds(JsonWriter &json, const Payload &payload, const PackNames &names)
{
    std::set<quint32> numbers;
    for (const LanguageStrings &language : payload.languages) {
        for (const TableString &string : language.strings)
            numbers.insert(string.id);
    }
    json.Key("string_ids");
    json.BeginObject();
    for (const quint32 number : numbers) {
        if (const QString name = names.Of(number); !name.isEmpty()) {
            json.Key(QString::number(number));
            json.String(name);
        }
    }
    json.EndObject();
}

} // namespace

QByteArray InspectJson(const Environment &env, const InspectResult &result, const PackNames &names)
{
    QByteArray bytes;
    JsonWriter json(bytes);
    json.BeginObject();
    WriteNumber(json, "version", 1);
    json.Key("kind");
    json.String(QString::fromLatin1(result.kind));
    WriteNumber(json, "base", result.payload.base);
    WriteEntries(json, env, result.payload);
    WriteBlock(json, result.payload, names);
    WriteStrings(json, result.payload);
    if (!names.IsEmpty())
        WriteStringIds(json, result.payload, names);
    json.EndObject();
    return bytes + '\n';
}

QByteArray InspectText(const Environment &env, const InspectResult &result, const PackNames &names)
{
    const Payload &payload = result.payload;
    const QByteArray kind = result.kind == "elf"   ? "ELF file with a section .zp_res"
                            : result.kind == "dll" ? "file with the payload after its end"
                                                   : "side file";
    QByteArray text = "kind     " + result.kind + ", " + kind + "\npayload  " + Number(result.payloadSize) +
                      " bytes at " + Number(result.payloadOffset) + ", offsets count from " + Number(payload.base) +
                      "\n";
    if (!result.isSelection || !payload.entries.empty())
        text += "\nentries  " + Number(payload.entries.size()) + "\n" + Column("offset") + Column("size") + "  name\n";
    for (const DirectoryEntry &entry : payload.entries)
        text += Column(Number(entry.offset)) + Column(Number(entry.size)) + "  " +
                OnOneLine(env.NarrowToWide(entry.name)) + '\n';
    if (!result.isSelection || !payload.block.empty())
        text += "\nblock    " + Number(payload.block.size()) + "\n" + Column("offset") + Column("size") +
                Column("key") + "  what\n";
    for (const BlockEntry &item : payload.block) {
        const bool isLanguage = item.key >= LANGUAGE_KEY;
        text += Column(Number(item.offset)) + Column(Number(item.size)) +
                Column(isLanguage ? "0x" + QByteArray::number(item.key, 16).toUpper() : Number(item.key)) + "  " +
                WhatIs(item) + (isLanguage ? " of language " + Number(item.key & 0xFFFF) : QByteArray());
        if (const QString name = names.Of(item.key); !name.isEmpty())
            text += "  " + OnOneLine(name);
        text += '\n';
    }
    for (const LanguageStrings &language : payload.languages) {
        text += "\nlanguage " + Number(language.language) + ", " + Number(language.strings.size()) + " strings\n";
        const QByteArrayList ids = NameColumn(language.strings, names, [](const TableString &one) { return one.id; });
        for (size_t i = 0; i < language.strings.size(); ++i) {
            const TableString &string = language.strings[i];
            text += Column(Number(string.id)) + ids[qsizetype(i)] + "  " + OnOneLine(string.text) + '\n';
        }
    }
    return text;
}
