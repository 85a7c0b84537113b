// SPDX-License-Identifier: MIT
#include "PartText.h"

#include "JsonWriter.h"
#include "ListingText.h"
#include "PackNames.h"

namespace
{

const char *KindWord(PartKind kind)
{
    static constexpr const char *WORDS[] = {"entry", "item", "string", "prefix", "table", "padding", "file"};
    return WORDS[int(kind)];
}

bool HasNumber(const PackedPart &part)
{
    return part.kind == PartKind::Item || part.kind == PartKind::String;
}

} // namespace

QByteArray PartText(const PackedPart &part, const PackNames &names)
{
    QByteArray text = part.language < 0 ? "" : "language " + QByteArray::number(part.language) + ' ';
    if (part.kind == PartKind::Prefix)
        text += "prefixes of files";
    else if (part.kind == PartKind::File || (part.kind == PartKind::Table && part.language < 0))
        return OnOneLine(part.name);
    else
        text += KindWord(part.kind);
    if (HasNumber(part))
        text += ' ' + QByteArray::number(part.number);
    const QString name = HasNumber(part) ? names.Of(part.number) : part.name;
    return name.isEmpty() ? text : text + ' ' + OnOneLine(name);
}

void WritePart(JsonWriter &json, const PackedPart &part, const PackNames &names)
{
    json.Key("kind");
    json.String(QString::fromLatin1(KindWord(part.kind)));
    if (part.language >= 0) {
        json.Key("language");
        json.Number(part.language);
    }
    if (HasNumber(part)) {
        json.Key("number");
        json.Number(part.number);
    }
    if (const QString id = HasNumber(part) ? names.Of(part.number) : QString(); !id.isEmpty()) {
        json.Key("id");
        json.String(id);
    }
    if (!part.name.isEmpty()) {
        json.Key("name");
        json.String(WholeCharacters(part.name));
    }
}
