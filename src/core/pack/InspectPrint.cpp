// SPDX-License-Identifier: MIT
#include "ByteReader.h"
#include "Environment.h"
#include "Inspect.h"

#include <set>

using namespace Qt::StringLiterals;

namespace
{

/// A text in JSON's quotes (RFC 8259).
QByteArray JsonText(const QString &text)
{
    return Quoted(TextToUtf8(text), [](QByteArray &to, char c) {
        if (c == '\x7F') // JSON doesn't count it as a control character
            to += c;
        else
            to += "\\u00" + QByteArray(1, c).toHex();
    });
}

QByteArray Number(quint64 number)
{
    return QByteArray::number(number);
}

/// Appends `items` as a list, one a line, each made by `print`.
template <typename Items, typename Print> void AppendList(QByteArray &json, const Items &items, const Print &print)
{
    bool first = true;
    for (const auto &item : items) {
        json += first ? "\n" : ",\n";
        first = false;
        print(item);
    }
    if (!first)
        json += "\n  ";
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

/// True for characters that control a terminal or change the direction of the text around them.
bool IsSteering(QChar c)
{
    const char16_t unit = c.unicode();
    return c.category() == QChar::Other_Control || unit == 0x2028 || unit == 0x2029 ||
           (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
}

/// Escapes a text to fit on one line of a listing.
QByteArray OnOneLine(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c == u'\n' || c == u'\r' || c == u'\t')
            result += c == u'\n' ? u"\\n"_s : c == u'\r' ? u"\\r"_s : u"\\t"_s;
        else
            result += IsSteering(c) ? u'?' : c;
    }
    return TextToUtf8(std::move(result));
}

QByteArray Column(const QByteArray &text, int width)
{
    return text.rightJustified(width);
}

} // namespace

QByteArray TextToUtf8(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else if (text[i].isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text.toUtf8();
}

QByteArray InspectJson(const Environment &env, const InspectResult &result)
{
    const Payload &payload = result.payload;
    QByteArray json = "{\n  \"kind\": " + JsonText(QString::fromLatin1(result.kind)) +
                      ",\n  \"base\": " + Number(payload.base) + ",\n  \"entries\": [";
    AppendList(json, payload.entries, [&](const DirectoryEntry &entry) {
        json += "    {\"name\": " + JsonText(env.NarrowToWide(entry.name)) + ", \"offset\": " + Number(entry.offset) +
                ", \"size\": " + Number(entry.size) + '}';
    });
    json += "],\n  \"block\": [";
    AppendList(json, payload.block, [&](const BlockEntry &item) {
        json += "    {\"key\": " + Number(item.key) + ", \"offset\": " + Number(item.offset) +
                ", \"size\": " + Number(item.size) + '}';
    });
    json += "],\n  \"strings\": {";
    // If a language has several tables, the first counts, as on the device.
    std::vector<const LanguageStrings *> languages;
    std::set<quint32> known;
    for (const LanguageStrings &language : payload.languages) {
        if (known.insert(language.language).second)
            languages.push_back(&language);
    }
    AppendList(json, languages, [&](const LanguageStrings *language) {
        json += "    \"" + Number(language->language) + "\": {";
        const char *separator = "";
        for (const TableString &string : language->strings) {
            json += separator;
            json += '"' + Number(string.id) + "\": " + JsonText(string.text);
            separator = ", ";
        }
        json += '}';
    });
    return json + "}\n}\n";
}

QByteArray InspectText(const Environment &env, const InspectResult &result)
{
    const Payload &payload = result.payload;
    const QByteArray kind = result.kind == "elf"   ? "ELF file with a section .zp_res"
                            : result.kind == "dll" ? "file with the payload after its end"
                                                   : "side file";
    QByteArray text = "kind     " + result.kind + ", " + kind + "\npayload  " + Number(result.payloadSize) +
                      " bytes at " + Number(result.payloadOffset) + ", offsets count from " + Number(payload.base) +
                      "\n";
    text +=
        "\nentries  " + Number(payload.entries.size()) + "\n" + Column("offset", 12) + Column("size", 12) + "  name\n";
    for (const DirectoryEntry &entry : payload.entries)
        text += Column(Number(entry.offset), 12) + Column(Number(entry.size), 12) + "  " +
                OnOneLine(env.NarrowToWide(entry.name)) + '\n';
    text += "\nblock    " + Number(payload.block.size()) + "\n" + Column("offset", 12) + Column("size", 12) +
            Column("key", 12) + "  what\n";
    for (const BlockEntry &item : payload.block) {
        const bool isLanguage = item.key >= LANGUAGE_KEY;
        text += Column(Number(item.offset), 12) + Column(Number(item.size), 12) +
                Column(isLanguage ? "0x" + QByteArray::number(item.key, 16).toUpper() : Number(item.key), 12) + "  " +
                WhatIs(item) + (isLanguage ? " of language " + Number(item.key & 0xFFFF) : QByteArray()) + '\n';
    }
    for (const LanguageStrings &language : payload.languages) {
        text += "\nlanguage " + Number(language.language) + ", " + Number(language.strings.size()) + " strings\n";
        for (const TableString &string : language.strings)
            text += Column(Number(string.id), 12) + "  " + OnOneLine(string.text) + '\n';
    }
    return text;
}
