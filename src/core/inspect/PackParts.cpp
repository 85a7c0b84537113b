// SPDX-License-Identifier: MIT
#include "PackParts.h"

#include "ElfSections.h"
#include "Environment.h"
#include "FileCover.h"
#include "Inspect.h"

#include <algorithm>

namespace
{

constexpr quint64 RECORD_BESIDE_NAME = 9; // the name's zero byte, offset, size

/// Splits one payload. Goes through its bytes from the first to the last.
class PayloadSplitter
{
public:
    PayloadSplitter(const Environment &environment, const InspectResult &result, std::vector<PackedPart> &to)
        : env(environment), payload(result.payload),
          bytes(result.file.Bytes().sliced(qsizetype(result.payloadOffset), qsizetype(result.payloadSize))), parts(to)
    {
    }

    void Split()
    {
        quint64 directory = RECORD_BESIDE_NAME; // of the record that ends it
        for (const DirectoryEntry &entry : payload.entries)
            directory += quint64(entry.name.size()) + RECORD_BESIDE_NAME;
        parts.push_back({PartKind::Table, 0, -1, QStringLiteral("directory"), Take(directory)});
        for (const DirectoryEntry &entry : payload.entries) {
            SkipTo(entry.offset);
            if (&entry == &payload.entries.back())
                parts.push_back({PartKind::Table, 0, -1, QStringLiteral("table of items"), Take(entry.size)});
            else
                parts.push_back({PartKind::Entry, 0, -1, env.NarrowToWide(entry.name), Take(entry.size)});
        }
        auto language = payload.languages.begin();
        for (const BlockEntry &item : payload.block) {
            SkipTo(item.offset);
            const QByteArray itemBytes = Take(item.size);
            if (item.key >= LANGUAGE_KEY)
                SplitLanguage(*language++, itemBytes);
            else
                SplitItem(item.key, itemBytes);
        }
        padding += Take(quint64(bytes.size()) - at);
        if (!prefixes.isEmpty())
            parts.push_back({PartKind::Prefix, 0, -1, {}, prefixes});
        if (!padding.isEmpty())
            parts.push_back({PartKind::Padding, 0, -1, {}, padding});
    }

private:
    QByteArray Take(quint64 size)
    {
        const QByteArrayView view = bytes.sliced(qsizetype(at), qsizetype(size));
        at += size;
        return QByteArray::fromRawData(view.data(), view.size());
    }

    /// Goes to an offset of the directory or the item table. The reader has checked that it isn't before this place.
    void SkipTo(quint32 offset) { padding += Take(offset - payload.base - at); }

    void SplitItem(quint32 key, const QByteArray &item)
    {
        static constexpr char ZEROS[8] = {};
        const bool hasPrefix = item.startsWith(QByteArrayView(ZEROS, sizeof ZEROS));
        if (hasPrefix)
            prefixes.append(ZEROS, sizeof ZEROS);
        const QByteArrayView data = QByteArrayView(item).sliced(hasPrefix ? qsizetype(sizeof ZEROS) : 0);
        parts.push_back({PartKind::Item, key, -1, {}, QByteArray::fromRawData(data.data(), data.size())});
    }

    void SplitLanguage(const LanguageStrings &language, const QByteArray &table)
    {
        const int number = int(language.language);
        const auto part = [&](quint64 from, quint64 to) {
            return QByteArray::fromRawData(table.constData() + from, qsizetype(to - from));
        };
        std::vector<const TableString *> strings;
        for (const TableString &string : language.strings)
            strings.push_back(&string);
        std::sort(strings.begin(), strings.end(),
                  [](const TableString *a, const TableString *b) { return a->offset < b->offset; });
        quint64 end = 4 + 8 * quint64(*ByteReader(table).U32(0));
        parts.push_back({PartKind::Table, 0, number, {}, part(0, end)});
        QByteArray unused;
        for (const TableString *string : strings) {
            unused += part(end, string->offset);
            end = string->offset + 2 * quint64(string->text.size()) + 2;
            parts.push_back({PartKind::String, string->id, number, {}, part(string->offset, end)});
        }
        unused += part(end, quint64(table.size()));
        if (!unused.isEmpty())
            parts.push_back({PartKind::Padding, 0, number, {}, unused});
    }

    const Environment &env;
    const Payload &payload;
    const QByteArrayView bytes;
    std::vector<PackedPart> &parts;
    quint64 at = 0;
    QByteArray prefixes;
    QByteArray padding;
};

/// Adds what an ELF file has beside the payload.
void SplitElf(const InspectResult &result, std::vector<PackedPart> &parts)
{
    constexpr quint64 ELF_HEADER = 52; // bytes
    FileCover cover(result.file.Bytes());
    (void)cover.Take(result.payloadOffset, result.payloadSize);
    const auto add = [&](const QString &name, quint64 offset, quint64 size) {
        QByteArray bytes = cover.Take(offset, size);
        if (!bytes.isEmpty())
            parts.push_back({PartKind::File, 0, -1, name, std::move(bytes)});
    };
    const ByteReader file(result.file.Bytes());
    add(QStringLiteral("ELF header"), 0, ELF_HEADER);
    add(QStringLiteral("program headers"), file.U32(28).value_or(0),
        quint64(file.U16(42).value_or(0)) * file.U16(44).value_or(0));
    ElfSections sections(result.file.Bytes());
    if (sections.Open().isEmpty()) {
        add(QStringLiteral("section table"), sections.TableOffset(), sections.TableSize());
        for (quint64 i = 0; i < sections.Count(); ++i) {
            if (const auto section = sections.At(i); section && section->IsInFile())
                add(QStringLiteral("section ") + QString::fromUtf8(section->name), section->offset, section->size);
        }
    }
    add(QStringLiteral("other bytes of the file"), 0, file.Size());
}

/// Adds what a file has beside the payload that was appended to it.
void SplitAppended(const InspectResult &result, std::vector<PackedPart> &parts)
{
    const auto add = [&](const QString &name, quint64 from, quint64 to) {
        parts.push_back({PartKind::File, 0, -1, name,
                         QByteArray::fromRawData(result.file.Bytes().data() + from, qsizetype(to - from))});
    };
    const quint64 mark = result.payloadOffset - sizeof PAYLOAD_NAME;
    const quint64 end = result.payloadOffset + result.payloadSize;
    add(QStringLiteral("file before packing"), 0, mark);
    add(QStringLiteral("mark before the payload"), mark, result.payloadOffset);
    add(QStringLiteral("size behind the payload"), end, quint64(result.file.Bytes().size()));
}

} // namespace

std::vector<PackedPart> PartsOf(const Environment &env, const InspectResult &result)
{
    std::vector<PackedPart> parts;
    PayloadSplitter(env, result, parts).Split();
    if (result.kind == "elf")
        SplitElf(result, parts);
    else if (result.kind == "dll")
        SplitAppended(result, parts);
    return parts;
}
