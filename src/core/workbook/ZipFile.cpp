// SPDX-License-Identifier: MIT
#include "ZipFile.h"

#include "ByteReader.h"
#include "PartUnpacker.h"

#include <algorithm>
#include <array>

// The fields of the file that are read, little-endian (APPNOTE, PKWARE):
//
//   end of the directory     0 "PK\5\6"  10 number of entries, 16 bits  12 size of the directory  16 its offset
//                           20 length of the comment that follows, 16 bits
//   entry of the directory   0 "PK\1\2"   8 flags, 16 bits  10 method, 16 bits  16 CRC-32  20 packed size  24 size
//                           28, 30, 32 lengths of name, extra fields and comment, 16 bits  42 offset of the header
//                           46 name, extra fields, comment
//   header of a part         0 "PK\3\4"  26, 28 lengths of name and extra fields, 16 bits  30 name, extra fields, data
//   extra field              0 kind, 16 bits   2 length, 16 bits
//   extra field of kind 1    64 bits for each of size, packed size and offset that is 0xFFFFFFFF in the entry

namespace
{

constexpr quint64 END_SIZE = 22;
constexpr quint64 ENTRY_SIZE = 46;
constexpr quint64 HEADER_SIZE = 30;
constexpr qsizetype LONGEST_COMMENT = 0xFFFF;
constexpr quint32 IN_EXTRA_FIELD = 0xFFFFFFFF;
constexpr quint16 SIZES_64 = 1;
constexpr quint16 ENCRYPTED = 1;
constexpr quint16 STORED = 0;
constexpr quint16 DEFLATED = 8;

constexpr quint64 SMALL_PART = 16 << 20; // bytes; the compression ratio of larger parts is limited
constexpr quint64 MOST_SHRINKING = 100;  // sheets shrink to a tenth or a thirtieth; a ZIP bomb to a thousandth
constexpr quint64 LARGEST_PART = 1 << 30;

WorkbookResult Broken(const QString &reason)
{
    return {WorkbookFault::Broken, reason};
}

quint64 U64(const ByteReader &bytes, quint64 at)
{
    return quint64(*bytes.U32(at + 4)) << 32 | *bytes.U32(at);
}

/// Sets those numbers that the entry doesn't have to the 64-bit numbers in the extra fields. False when these are
/// missing.
bool ReadWideNumbers(QByteArrayView extra, std::array<quint64 *, 3> numbers)
{
    const bool isWide = std::any_of(numbers.begin(), numbers.end(), [](quint64 *n) { return *n == IN_EXTRA_FIELD; });
    const ByteReader fields(extra);
    for (quint64 at = 0; isWide; at += 4 + *fields.U16(at + 2)) {
        const auto kind = fields.U16(at);
        const auto size = fields.U16(at + 2);
        if (!kind || !size || !fields.Slice(at + 4, *size))
            return false;
        if (*kind != SIZES_64)
            continue;
        quint64 next = at + 4;
        for (quint64 *number : numbers) {
            if (*number != IN_EXTRA_FIELD)
                continue;
            if (next + 8 > at + 4 + *size)
                return false;
            *number = U64(fields, next);
            next += 8;
        }
        return true;
    }
    return true;
}

} // namespace

WorkbookResult ZipFile::Open(QByteArrayView bytes)
{
    file = bytes;
    if (!file.startsWith("PK\3\4") && !file.startsWith("PK\5\6"))
        return {WorkbookFault::NoWorkbook, QStringLiteral("it isn't a ZIP file")};
    const QByteArrayView tail = file.last(std::min(file.size(), qsizetype(END_SIZE) + LONGEST_COMMENT));
    const qsizetype found = tail.lastIndexOf("PK\5\6");
    const ByteReader reader(tail);
    if (found < 0 || !reader.Slice(quint64(found), END_SIZE))
        return Broken(QStringLiteral("it is cut off: there is no directory of its parts"));
    const quint64 end = quint64(found);
    const QString wrong = ReadDirectory(quint64(file.size() - tail.size()) + end, *reader.U32(end + 16),
                                        *reader.U32(end + 12), *reader.U16(end + 10));
    return wrong.isEmpty() ? WorkbookResult() : Broken(wrong);
}

QString ZipFile::ReadDirectory(quint64 end, quint64 at, quint64 size, quint16 count)
{
    if (at > end || size > end - at)
        return QStringLiteral("the directory of its parts, %1 bytes at %2, ends after %3").arg(size).arg(at).arg(end);
    taken.push_back({at, end + END_SIZE});
    const quint64 directoryEnd = at + size;
    for (int i = 0; i < count; ++i) {
        QString wrong = ReadEntry(at);
        if (wrong.isEmpty() && at > directoryEnd)
            wrong = QStringLiteral("it ends after the directory");
        if (!wrong.isEmpty())
            return QStringLiteral("part %1 of %2: %3").arg(i + 1).arg(count).arg(wrong);
    }
    return CheckOverlaps();
}

QString ZipFile::ReadEntry(quint64 &at)
{
    const ByteReader reader(file);
    const auto entry = reader.Slice(at, ENTRY_SIZE);
    if (!entry || !entry->startsWith("PK\1\2"))
        return QStringLiteral("there is no entry at %1").arg(at);
    const quint16 nameSize = *reader.U16(at + 28);
    const quint16 extraSize = *reader.U16(at + 30);
    const auto name = reader.Slice(at + ENTRY_SIZE, nameSize);
    const auto extra = reader.Slice(at + ENTRY_SIZE + nameSize, extraSize);
    if (!name || !extra)
        return QStringLiteral("its name is cut off");
    Part part;
    part.isEncrypted = *reader.U16(at + 8) & ENCRYPTED;
    part.method = *reader.U16(at + 10);
    part.crc = *reader.U32(at + 16);
    part.size = *reader.U32(at + 24);
    quint64 packedSize = *reader.U32(at + 20);
    quint64 header = *reader.U32(at + 42);
    if (!ReadWideNumbers(*extra, {&part.size, &packedSize, &header}))
        return QStringLiteral("its sizes are missing");
    const QString wrong = FindData(header, packedSize, part);
    if (!wrong.isEmpty())
        return wrong;
    const QByteArray key = name->toByteArray().toLower().replace('\\', '/');
    if (parts.contains(key))
        return QStringLiteral("another part has the name %1").arg(QString::fromUtf8(key));
    parts.insert(key, part);
    names.append(name->toByteArray());
    at += ENTRY_SIZE + nameSize + extraSize + *reader.U16(at + 32);
    return {};
}

QString ZipFile::FindData(quint64 header, quint64 packedSize, Part &part)
{
    const ByteReader reader(file);
    const auto begin = reader.Slice(header, HEADER_SIZE);
    if (!begin || !begin->startsWith("PK\3\4"))
        return QStringLiteral("it is not at %1").arg(header);
    const quint64 at = header + HEADER_SIZE + *reader.U16(header + 26) + *reader.U16(header + 28);
    const auto data = reader.Slice(at, packedSize);
    if (!data)
        return QStringLiteral("its %1 bytes at %2 extend beyond the end of the file").arg(packedSize).arg(at);
    part.data = *data;
    taken.push_back({header, at + packedSize});
    return {};
}

QString ZipFile::CheckOverlaps()
{
    std::sort(taken.begin(), taken.end());
    for (size_t i = 1; i < taken.size(); ++i) {
        if (taken[i].first < taken[i - 1].second)
            return QStringLiteral("two of its parts overlap at %1").arg(taken[i].first);
    }
    return {};
}

WorkbookResult ZipFile::Read(const QByteArray &name, const std::function<bool(QByteArrayView)> &take) const
{
    const auto found = parts.constFind(name.toLower());
    const auto broken = [&name](const QString &what) { return Broken(QString::fromUtf8(name) + what); };
    if (found == parts.constEnd())
        return broken(QStringLiteral(" is missing"));
    const Part &part = *found;
    if (part.isEncrypted)
        return broken(QStringLiteral(" is encrypted"));
    if (part.method != STORED && part.method != DEFLATED)
        return broken(QStringLiteral(" is compressed with the unknown method %1").arg(part.method));
    const quint64 most = std::clamp(MOST_SHRINKING * quint64(part.data.size()), SMALL_PART, LARGEST_PART);
    if (part.size > most)
        return {WorkbookFault::TooLarge, QStringLiteral("%1 has %2 bytes, but %4 compressed bytes may have at most %3")
                                             .arg(QString::fromUtf8(name))
                                             .arg(part.size)
                                             .arg(most)
                                             .arg(part.data.size())};
    PartUnpacker unpacker(part.data, part.method == DEFLATED, part.size);
    quint64 size = 0;
    for (;;) {
        if (stop && *stop)
            return {WorkbookFault::Stopped, {}};
        const auto piece = unpacker.Next();
        size += piece ? quint64(piece->size()) : 0;
        if (!piece || size > part.size)
            return broken(QStringLiteral(" is damaged: it can't be decompressed"));
        if (piece->isEmpty())
            break;
        if (!take(*piece))
            return {};
    }
    if (size != part.size || unpacker.Checksum() != part.crc)
        return broken(QStringLiteral(" is damaged: its size or checksum is wrong"));
    return {};
}
