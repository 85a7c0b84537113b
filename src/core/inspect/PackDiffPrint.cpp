// SPDX-License-Identifier: MIT
#include "PackDiffPrint.h"

#include "JsonWriter.h"
#include "ListingText.h"
#include "PartText.h"

namespace
{

const char *ChangeWord(PartChange change)
{
    static constexpr const char *WORDS[] = {"added", "removed", "changed", "moved"};
    return WORDS[int(change)];
}

/// Returns the size of those parts that are in the payload, or of all.
qint64 SizeOf(const std::vector<PackedPart> &parts, bool isPayloadOnly)
{
    qint64 size = 0;
    for (const PackedPart &part : parts)
        size += part.IsOfPayload() || !isPayloadOnly ? part.bytes.size() : 0;
    return size;
}

QByteArray Signed(qint64 number)
{
    return number < 0 ? QByteArray::number(number) : '+' + QByteArray::number(number);
}

QByteArray Line(const char *change, qint64 before, qint64 after, const QByteArray &what)
{
    return QByteArray(change).leftJustified(8) + Column(QByteArray::number(before)) +
           Column(QByteArray::number(after)) + Column(Signed(after - before)) + "  " + what + '\n';
}

void WriteSizes(JsonWriter &json, qint64 before, qint64 after)
{
    json.Key("before");
    json.Number(before);
    json.Key("after");
    json.Number(after);
    json.Key("delta");
    json.Number(after - before);
}

const std::vector<DiffRow> &ListedRows(const ComparedPacks &packs)
{
    return packs.selected ? packs.selected->rows : packs.rows;
}

bool IsRenumbered(const DiffRow &row)
{
    return row.before && row.after && row.before->number != row.after->number;
}

} // namespace

QByteArray DiffText(const ComparedPacks &packs)
{
    QByteArray text =
        QByteArray("change").leftJustified(8) + Column("before") + Column("after") + Column("delta") + "  what\n";
    for (const DiffRow &row : ListedRows(packs)) {
        QByteArray what = PartText(row.Part(), row.after ? packs.namesAfter : packs.namesBefore);
        if (IsRenumbered(row))
            what += ", was " + QByteArray::number(row.before->number);
        text += Line(ChangeWord(row.change), row.Before(), row.After(), what);
    }
    text += '\n';
    if (packs.selected)
        text += Line("", packs.selected->before, packs.selected->after, "selected");
    for (const bool isPayload : {true, false})
        text +=
            Line("", SizeOf(packs.before, isPayload), SizeOf(packs.after, isPayload), isPayload ? "payload" : "file");
    return text;
}

QByteArray DiffJson(const ComparedPacks &packs)
{
    QByteArray bytes;
    JsonWriter json(bytes);
    json.BeginObject();
    json.Key("version");
    json.Number(1);
    for (const bool isPayload : {true, false}) {
        json.Key(isPayload ? "payload" : "file");
        json.BeginObject();
        WriteSizes(json, SizeOf(packs.before, isPayload), SizeOf(packs.after, isPayload));
        json.EndObject();
    }
    if (packs.selected) {
        json.Key("selected");
        json.BeginObject();
        WriteSizes(json, packs.selected->before, packs.selected->after);
        json.EndObject();
    }
    json.Key("rows");
    json.BeginArray();
    for (const DiffRow &row : ListedRows(packs)) {
        json.BeginObject();
        json.Key("change");
        json.String(QString::fromLatin1(ChangeWord(row.change)));
        WritePart(json, row.Part(), row.after ? packs.namesAfter : packs.namesBefore);
        if (IsRenumbered(row)) {
            json.Key("number_before");
            json.Number(row.before->number);
        }
        WriteSizes(json, row.Before(), row.After());
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return bytes + '\n';
}
