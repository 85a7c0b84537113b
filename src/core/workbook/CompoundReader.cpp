// SPDX-License-Identifier: MIT
#include "ByteReader.h"
#include "CompoundFile.h"
#include "XlsFault.h"

#include <QtEndian>

#include <algorithm>

namespace
{

// The header. Numbers are little-endian. Sector 0 begins one sector size after the start of the file.
//
//   offset  size  meaning
//        0     8  signature
//       30     2  binary logarithm of a sector's size
//       32     2  the same for a small sector
//       44     4  number of sectors of the table, which has the next sector of each sector
//       48     4  first sector of the directory
//       56     4  smallest size of a stream that is in sectors and not in small sectors
//       60     4  first sector of the table for small sectors
//       68     4  first sector with the rest of the list below
//       76   436  list of the table's sectors, the first 109 of them
//
// The list continues in sectors whose last number is the next such sector.
constexpr quint64 HEADER_SIZE = 512;
constexpr char SIGNATURE[] = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr quint64 SECTOR_SHIFT = 30;
constexpr quint64 SMALL_SHIFT = 32;
constexpr quint64 TABLE_SECTORS = 44;
constexpr quint64 DIRECTORY = 48;
constexpr quint64 SMALLEST_IN_SECTORS = 56;
constexpr quint64 SMALL_TABLE = 60;
constexpr quint64 LIST = 68;
constexpr quint64 LIST_IN_HEADER = 76;
constexpr quint64 LISTED_IN_HEADER = 109;

// An entry of the directory. The entries of a folder are a binary tree. Writers order it in different ways.
//
//   offset  size  meaning
//        0    64  name, UTF-16
//       64     2  the name's size in bytes, with a zero character
//       66     1  kind
//       68     4  number of the root of the entries before it
//       72     4  number of the root of the entries after it
//       76     4  for a folder: number of the root of the entries in it
//      116     4  first sector
//      120     4  size in bytes (4 more bytes follow, which small sectors of 512 bytes leave undefined)
constexpr quint64 ENTRY_SIZE = 128;
constexpr quint64 ENTRY_BEFORE = 68;
constexpr quint64 ENTRY_BEHIND = 72;
constexpr quint64 ENTRY_CHILD = 76;
constexpr char KIND_STREAM = 2;

constexpr quint32 END_OF_CHAIN = 0xFFFFFFFE;
constexpr quint64 SMALL_SECTOR_SIZE = 64;

std::vector<quint32> Numbers(QByteArrayView bytes)
{
    std::vector<quint32> numbers(size_t(bytes.size() / 4));
    for (size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = qFromLittleEndian<quint32>(bytes.data() + 4 * i);
    return numbers;
}

quint64 DivideUp(quint64 value, quint64 by)
{
    return value / by + (value % by != 0 ? 1 : 0);
}

} // namespace

WorkbookResult SectorSpace::Gather(quint32 start, quint64 length, const QString &name, QByteArray &result) const
{
    const ByteReader reader(bytes);
    if (length != WHOLE_CHAIN && length > reader.Size())
        return BrokenXls(QStringLiteral("%1 has %2 bytes according to the file, but the sectors have only %3 bytes")
                             .arg(name)
                             .arg(length)
                             .arg(bytes.size()));
    std::vector<bool> seen(next.size());
    result.clear();
    quint64 left = length;
    for (quint32 sector = start; left > 0; sector = next[sector]) {
        if (sector == END_OF_CHAIN && length == WHOLE_CHAIN)
            break;
        if (sector >= next.size())
            return BrokenXls(
                QStringLiteral(
                    "%1: the chain of sectors leads to sector 0x%2 after %3 bytes, but there are only %4 sectors")
                    .arg(name)
                    .arg(sector, 0, 16)
                    .arg(result.size())
                    .arg(next.size()));
        if (seen[sector])
            return BrokenXls(QStringLiteral("%1: the chain of sectors returns to sector %2").arg(name).arg(sector));
        seen[sector] = true;
        // The last sector of a file may be incomplete if its other bytes aren't needed.
        const quint64 at = sector * sectorSize;
        const quint64 here = std::min(sectorSize, reader.Size() - std::min(at, reader.Size()));
        const quint64 wanted = length == WHOLE_CHAIN ? here : std::min(sectorSize, left);
        const auto part = reader.Slice(at, wanted);
        if (!part)
            return BrokenXls(QStringLiteral("%1: sector %2 is beyond the end of the file").arg(name).arg(sector));
        result.append(*part);
        left -= wanted;
    }
    return {};
}

std::optional<QByteArrayView> SectorSpace::InPlace(quint32 start, quint64 length) const
{
    const quint64 sectorCount = DivideUp(length, sectorSize);
    if (start >= next.size() || sectorCount > next.size() - start)
        return std::nullopt;
    for (quint64 sector = start; sector + 1 < start + sectorCount; ++sector) {
        if (next[sector] != sector + 1)
            return std::nullopt;
    }
    return ByteReader(bytes).Slice(start * sectorSize, length);
}

quint32 CompoundReader::HeaderField(quint64 at) const
{
    return *ByteReader(header).U32(at);
}

WorkbookResult CompoundReader::Open(QByteArrayView file)
{
    const auto start = ByteReader(file).Slice(0, HEADER_SIZE);
    if (!file.startsWith(SIGNATURE) || !start)
        return NoXls(QStringLiteral("it isn't a compound file"));
    header = *start;
    const quint16 shift = *ByteReader(header).U16(SECTOR_SHIFT);
    const quint16 smallShift = *ByteReader(header).U16(SMALL_SHIFT);
    if ((shift != 9 && shift != 12) || smallShift != 6)
        return BrokenXls(
            QStringLiteral("the compound file has sectors of 2^%1 and 2^%2 bytes, not of 2^9 or 2^12 and 2^6")
                .arg(shift)
                .arg(smallShift));
    sectors.sectorSize = quint64(1) << shift;
    sectors.bytes = file.sliced(std::min(file.size(), qsizetype(sectors.sectorSize)));
    if (const WorkbookResult wrong = ReadTable(); wrong.HasFailed())
        return wrong;
    return ReadDirectory();
}

WorkbookResult CompoundReader::ReadTable()
{
    const ByteReader bytes(sectors.bytes);
    const quint64 perSector = sectors.sectorSize / 4;
    const quint64 sectorCount = DivideUp(bytes.Size(), sectors.sectorSize);
    // Entries of the table for sectors that the file doesn't have are ignored.
    const quint64 wanted = std::min<quint64>(HeaderField(TABLE_SECTORS), DivideUp(sectorCount, perSector));
    quint64 list = HeaderField(LIST) * sectors.sectorSize;
    quint64 inList = 0;
    for (quint64 i = 0; i < wanted; ++i) {
        std::optional<quint32> sector;
        if (i < LISTED_IN_HEADER) {
            sector = HeaderField(LIST_IN_HEADER + 4 * i);
        } else {
            sector = bytes.U32(list + 4 * inList++);
            if (inList == perSector - 1) {
                list = bytes.U32(list + 4 * inList).value_or(END_OF_CHAIN) * sectors.sectorSize;
                inList = 0;
            }
        }
        const quint64 at = sector.value_or(END_OF_CHAIN) * sectors.sectorSize;
        const auto part = bytes.Slice(at, std::min(sectors.sectorSize, bytes.Size() - std::min(at, bytes.Size())));
        if (!part || part->isEmpty())
            return BrokenXls(
                QStringLiteral("part %1 of %2 of the sector table isn't within the file").arg(i + 1).arg(wanted));
        const std::vector<quint32> numbers = Numbers(*part);
        sectors.next.insert(sectors.next.end(), numbers.begin(), numbers.end());
    }
    if (sectors.next.size() > sectorCount)
        sectors.next.resize(size_t(sectorCount));
    return {};
}

CompoundReader::Stream CompoundReader::ReadEntry(QByteArrayView entry) const
{
    const ByteReader fields(entry);
    const quint16 nameSize = std::min<quint16>(fields.U16(64).value_or(0), 64);
    QString name(std::max(nameSize / 2 - 1, 0), Qt::Uninitialized);
    qFromLittleEndian<char16_t>(entry.data(), name.size(), name.data());
    return {name, *fields.U32(116), *fields.U32(120)};
}

WorkbookResult CompoundReader::ReadDirectory()
{
    QByteArray directory;
    const WorkbookResult wrong = sectors.Gather(HeaderField(DIRECTORY), SectorSpace::WHOLE_CHAIN,
                                                QStringLiteral("the directory of the compound file"), directory);
    if (wrong.HasFailed())
        return wrong;
    const quint64 count = quint64(directory.size()) / ENTRY_SIZE;
    if (count == 0)
        return BrokenXls(QStringLiteral("the directory of the compound file is empty"));
    const auto entryAt = [&](quint64 index) {
        return QByteArrayView(directory).sliced(qsizetype(index * ENTRY_SIZE), ENTRY_SIZE);
    };
    root = ReadEntry(entryAt(0));
    std::vector<bool> seen(size_t(count), false);
    std::vector<quint32> waiting = {*ByteReader(entryAt(0)).U32(ENTRY_CHILD)};
    while (!waiting.empty()) {
        const quint32 index = waiting.back();
        waiting.pop_back();
        if (index >= count || seen[index])
            continue;
        seen[index] = true;
        const QByteArrayView entry = entryAt(index);
        if (entry[66] == KIND_STREAM)
            streams.push_back(ReadEntry(entry));
        waiting.push_back(*ByteReader(entry).U32(ENTRY_BEFORE));
        waiting.push_back(*ByteReader(entry).U32(ENTRY_BEHIND));
    }
    return {};
}

const CompoundReader::Stream *CompoundReader::Find(QStringView name) const
{
    const auto found = std::find_if(streams.begin(), streams.end(), [name](const Stream &stream) {
        return QStringView(stream.name).compare(name, Qt::CaseInsensitive) == 0;
    });
    return found != streams.end() ? &*found : nullptr;
}

WorkbookResult CompoundReader::Read(QStringView name, QByteArrayView &stream, QByteArray &gathered) const
{
    const Stream *found = Find(name);
    if (!found)
        return NoXls(QStringLiteral("the compound file has no stream \"%1\"").arg(name));
    const bool isSmall = found->size < HeaderField(SMALLEST_IN_SECTORS);
    if (const auto inPlace = isSmall ? std::nullopt : sectors.InPlace(found->start, found->size)) {
        stream = *inPlace;
        return {};
    }
    const WorkbookResult result =
        isSmall ? ReadSmall(*found, gathered)
                : sectors.Gather(found->start, found->size, QStringLiteral("the stream \"%1\"").arg(name), gathered);
    stream = gathered;
    return result;
}

WorkbookResult CompoundReader::ReadSmall(const Stream &found, QByteArray &stream) const
{
    QByteArray table;
    WorkbookResult wrong = sectors.Gather(HeaderField(SMALL_TABLE), SectorSpace::WHOLE_CHAIN,
                                          QStringLiteral("the table of small sectors"), table);
    if (wrong.HasFailed())
        return wrong;
    QByteArray bytes;
    wrong = sectors.Gather(root.start, root.size, QStringLiteral("the small sectors"), bytes);
    if (wrong.HasFailed())
        return wrong;
    const SectorSpace small{bytes, SMALL_SECTOR_SIZE, Numbers(table)};
    return small.Gather(found.start, found.size, QStringLiteral("the stream \"%1\"").arg(found.name), stream);
}
