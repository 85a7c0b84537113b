// SPDX-License-Identifier: MIT
#include "PayloadReader.h"

#include "ByteReader.h"

#include <QtEndian>

#include <algorithm>

namespace
{

constexpr quint32 END_KEY = 0xFFFFFFFF;
constexpr quint64 PAIR = 8; // key or ID, offset
constexpr char BLOCK_ENTRY[] = "zep-2.0";

/// Reads one payload. Each step returns an empty text, or what is wrong.
class PayloadParser
{
public:
    PayloadParser(QByteArrayView view, Payload &result) : bytes(view), payload(result) {}

    QString Parse()
    {
        for (const auto step : {&PayloadParser::ReadDirectory, &PayloadParser::FindBase, &PayloadParser::CheckEntries,
                                &PayloadParser::ReadBlock, &PayloadParser::ReadLanguages}) {
            const QString wrong = (this->*step)();
            if (!wrong.isEmpty())
                return wrong;
        }
        return {};
    }

private:
    QString ReadDirectory()
    {
        quint64 at = 0;
        for (;;) {
            const auto name = bytes.ZeroTerminated(at);
            if (!name)
                return QStringLiteral(
                           "it isn't a packed file, or it is damaged: its directory has no end mark (entry %1 "
                           "at offset %2)")
                    .arg(payload.entries.size())
                    .arg(at);
            at += quint64(name->size()) + 1;
            const auto offset = bytes.U32(at);
            const auto size = bytes.U32(at + 4);
            if (!offset || !size)
                return QStringLiteral("the directory is cut off in entry %1").arg(payload.entries.size());
            at += 8;
            if (name->isEmpty())
                break;
            payload.entries.push_back({name->toByteArray(), *offset, *size, {}});
        }
        directorySize = RoundUpTo4(at);
        return {};
    }

    QString FindBase()
    {
        if (payload.entries.empty())
            return QStringLiteral("the directory is empty");
        const quint32 first = payload.entries.front().offset;
        if (first < directorySize)
            return QStringLiteral("the first entry's offset is %1, within the directory of %2 bytes")
                .arg(first)
                .arg(directorySize);
        payload.base = first - directorySize;
        return {};
    }

    /// The bytes at an offset and of a size that the file gives; nothing if they are outside of the payload.
    [[nodiscard]] std::optional<QByteArrayView> Part(quint64 offset, quint64 size) const
    {
        return offset < payload.base ? std::nullopt : bytes.Slice(offset - payload.base, size);
    }

    QString CheckEntries()
    {
        quint64 end = payload.base + directorySize;
        for (DirectoryEntry &entry : payload.entries) {
            const auto data = Part(entry.offset, entry.size);
            if (!data || entry.offset < end)
                return QStringLiteral("entry %1 has offset %2 and size %3, but must be between %4 and %5")
                    .arg(&entry - payload.entries.data())
                    .arg(entry.offset)
                    .arg(entry.size)
                    .arg(end)
                    .arg(payload.base + bytes.Size());
            entry.data = *data;
            end = quint64(entry.offset) + entry.size;
        }
        return {};
    }

    QString ReadBlock()
    {
        const DirectoryEntry &table = payload.entries.back();
        if (table.name != BLOCK_ENTRY)
            return QStringLiteral("the last entry, %1, isn't named \"%2\"")
                .arg(payload.entries.size() - 1)
                .arg(QLatin1String(BLOCK_ENTRY));
        const quint64 count = table.size / PAIR;
        const ByteReader pairs(table.data);
        if (count == 0 || table.size % PAIR != 0 || *pairs.U32((count - 1) * PAIR) != END_KEY)
            return QStringLiteral("the block table of %1 bytes doesn't end in the key 0xFFFFFFFF").arg(table.size);
        quint64 start = quint64(table.offset) + table.size;
        payload.block.reserve(size_t(count - 1));
        for (quint64 i = 0; i + 1 < count; ++i) {
            const quint32 offset = *pairs.U32(i * PAIR + 4);
            const quint32 next = *pairs.U32((i + 1) * PAIR + 4);
            const auto data = next < offset ? std::nullopt : Part(offset, next - offset);
            if (!data || offset < start)
                return QStringLiteral("block record %1 extends from %2 to %3, but must be between %4 and %5")
                    .arg(i)
                    .arg(offset)
                    .arg(next)
                    .arg(start)
                    .arg(payload.base + bytes.Size());
            const quint32 key = *pairs.U32(i * PAIR);
            if (key == END_KEY)
                return QStringLiteral("block record %1 has the key 0xFFFFFFFF, which ends the table, but %2 follow")
                    .arg(i)
                    .arg(count - 1 - i);
            payload.block.push_back({key, offset, next - offset, *data});
            start = next;
        }
        return {};
    }

    QString ReadLanguages()
    {
        for (const BlockEntry &item : payload.block) {
            if (item.key < LANGUAGE_KEY)
                continue;
            LanguageStrings language{item.key & 0xFFFF, {}};
            const QString wrong = ReadStrings(item.data, language.strings);
            if (!wrong.isEmpty())
                return QStringLiteral("language %1: %2").arg(language.language).arg(wrong);
            payload.languages.push_back(std::move(language));
        }
        return {};
    }

    static QString ReadStrings(QByteArrayView table, std::vector<TableString> &strings)
    {
        const ByteReader reader(table);
        const auto count = reader.U32(0);
        if (!count || *count == 0 || !reader.Slice(4, PAIR * *count))
            return QStringLiteral("a string count of %1 doesn't fit into %2 bytes")
                .arg(count.value_or(0))
                .arg(table.size());
        quint64 start = 4 + PAIR * *count;
        for (quint64 i = 0; i + 1 < *count; ++i) {
            const quint32 id = *reader.U32(4 + i * PAIR);
            const quint32 offset = *reader.U32(8 + i * PAIR);
            if (id == END_KEY)
                return QStringLiteral("string %1 has the ID 0xFFFFFFFF, which ends the table, but %2 follow")
                    .arg(i)
                    .arg(*count - 1 - i);
            const quint64 end = offset < start ? 0 : FindEnd(reader, offset);
            if (offset < start || end == 0)
                return QStringLiteral(
                           "the string of ID %1 at %2 doesn't begin after %3 or doesn't end within the table")
                    .arg(id)
                    .arg(offset)
                    .arg(start);
            QString text(qsizetype((end - offset) / 2), Qt::Uninitialized);
            qFromLittleEndian<char16_t>(table.data() + offset, text.size(), text.data());
            strings.push_back({id, std::move(text), offset});
            start = end + 2;
        }
        if (*reader.U32(4 + PAIR * (*count - 1)) != END_KEY)
            return QStringLiteral("the string table doesn't end in the ID 0xFFFFFFFF");
        if (const quint32 size = *reader.U32(PAIR * *count); size != reader.Size())
            return QStringLiteral("the string table says it has %1 bytes, but it has %2").arg(size).arg(reader.Size());
        KeepFirstOfEach(strings);
        return {};
    }

    /// The place of the zero unit that ends the string at `offset`; 0 if there is none.
    static quint64 FindEnd(const ByteReader &table, quint64 offset)
    {
        for (quint64 at = offset;; at += 2) {
            const auto unit = table.U16(at);
            if (!unit)
                return 0;
            if (*unit == 0)
                return at;
        }
    }

    static void KeepFirstOfEach(std::vector<TableString> &strings)
    {
        std::stable_sort(strings.begin(), strings.end(),
                         [](const TableString &a, const TableString &b) { return a.id < b.id; });
        strings.erase(std::unique(strings.begin(), strings.end(),
                                  [](const TableString &a, const TableString &b) { return a.id == b.id; }),
                      strings.end());
    }

    ByteReader bytes;
    Payload &payload;
    quint64 directorySize = 0;
};

} // namespace

QString ReadPayload(QByteArrayView bytes, Payload &payload)
{
    return PayloadParser(bytes, payload).Parse();
}
