// SPDX-License-Identifier: MIT
#include "SizeListing.h"

#include "JsonWriter.h"
#include "ListingText.h"
#include "PackSelection.h"
#include "PartText.h"

#include <algorithm>
#include <map>

std::vector<SizedPart> SizesOf(const std::vector<PackedPart> &parts, const PackNames &names,
                               const PackSelection *selection)
{
    std::vector<SizedPart> sizes;
    std::map<int, size_t> languages; // their places in `sizes`
    for (const PackedPart &part : parts) {
        if (!part.IsOfPayload() || (selection && !selection->Has(part)))
            continue;
        if (selection || part.language < 0) {
            sizes.push_back({PartText(part, names), &part, -1, part.bytes.size()});
            continue;
        }
        const auto [place, isNew] = languages.emplace(part.language, sizes.size());
        if (isNew)
            sizes.push_back({"language " + QByteArray::number(part.language), nullptr, part.language, 0});
        sizes[place->second].bytes += part.bytes.size();
    }
    std::stable_sort(sizes.begin(), sizes.end(),
                     [](const SizedPart &a, const SizedPart &b) { return a.bytes > b.bytes; });
    return sizes;
}

QByteArray SizesText(const std::vector<SizedPart> &sizes, quint64 payloadSize)
{
    QByteArray text = Column("bytes") + Column("share") + "  what\n";
    for (const SizedPart &one : sizes)
        text += Column(QByteArray::number(one.bytes)) +
                Column(QByteArray::number(100.0 * double(one.bytes) / double(payloadSize), 'f', 1) + " %") + "  " +
                one.text + '\n';
    return text;
}

QByteArray SizesJson(const std::vector<SizedPart> &sizes, quint64 payloadSize, const PackNames &names)
{
    QByteArray bytes;
    JsonWriter json(bytes);
    json.BeginObject();
    json.Key("version");
    json.Number(1);
    json.Key("payload");
    json.Number(qint64(payloadSize));
    json.Key("parts");
    json.BeginArray();
    for (const SizedPart &one : sizes) {
        json.BeginObject();
        if (one.part) {
            WritePart(json, *one.part, names);
        } else {
            json.Key("kind");
            json.String(QStringLiteral("language"));
            json.Key("language");
            json.Number(one.language);
        }
        json.Key("bytes");
        json.Number(one.bytes);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return bytes + '\n';
}
