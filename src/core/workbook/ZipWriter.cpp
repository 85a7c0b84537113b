// SPDX-License-Identifier: MIT
#include "ZipWriter.h"

#include <QtEndian>

// The fields of the file are described in ZipFile.cpp.

namespace
{

constexpr int LEVEL = 3; // a sheet takes a third of the time of the usual 6, and a fifth more space
constexpr int MEMORY_LEVEL = 9;
constexpr qsizetype PIECE = 64 << 10;
constexpr qsizetype MOST_BYTES = 0xFFFFFFFE; // a larger number means that the 64-bit fields have it
constexpr quint16 VERSION = 20;              // of the format that a reader must know
constexpr quint16 DEFLATED = 8;
constexpr quint32 DATE = 0x00210000; // 1980-01-01, midnight

void Put16(QByteArray &bytes, quint16 number)
{
    const quint16 little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

void Put32(QByteArray &bytes, quint32 number)
{
    const quint32 little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

} // namespace

ZipWriter::ZipWriter()
    : isGood(deflateInit2(&stream, LEVEL, Z_DEFLATED, -MAX_WBITS, MEMORY_LEVEL, Z_DEFAULT_STRATEGY) == Z_OK)
{
}

void ZipWriter::Begin(const QByteArray &partName)
{
    name = partName;
    header = pieces.size();
    size = 0;
    crc = crc32(0, nullptr, 0);
    isGood = isGood && deflateReset(&stream) == Z_OK;
    stream.avail_out = 0;
    pieces.emplace_back(); // End fills it
}

void ZipWriter::Pack(QByteArrayView piece, int flush)
{
    size += piece.size();
    isGood = isGood && size <= MOST_BYTES;
    if (!piece.isEmpty()) // without data the function returns the initial value
        crc = crc32_z(crc, reinterpret_cast<const Bytef *>(piece.data()), size_t(piece.size()));
    stream.next_in = reinterpret_cast<const Bytef *>(piece.data());
    stream.avail_in = uInt(piece.size());
    for (bool isMore = isGood; isMore;) {
        if (stream.avail_out == 0) {
            pieces.emplace_back(PIECE, Qt::Uninitialized);
            stream.next_out = reinterpret_cast<Bytef *>(pieces.back().data());
            stream.avail_out = PIECE;
        }
        isMore = deflate(&stream, flush) == Z_OK && stream.avail_out == 0;
    }
}

void ZipWriter::End()
{
    Pack({}, Z_FINISH);
    if (header + 1 < pieces.size())
        pieces.back().chop(qsizetype(stream.avail_out));
    QByteArray common; // what the header and the entry of the directory share
    Put16(common, VERSION);
    Put16(common, 0);
    Put16(common, DEFLATED);
    Put32(common, DATE);
    Put32(common, quint32(crc));
    Put32(common, quint32(stream.total_out));
    Put32(common, quint32(size));
    Put16(common, quint16(name.size()));
    Put16(common, 0);
    pieces[header] = "PK\3\4" + common + name;
    directory += QByteArray("PK\1\2\0\0", 6) + common + QByteArray(10, 0);
    Put32(directory, quint32(written));
    directory += name;
    written += pieces[header].size() + qsizetype(stream.total_out);
    ++count;
}

bool ZipWriter::Finish(std::FILE *file)
{
    if (!isGood || written + directory.size() > MOST_BYTES)
        return false;
    QByteArray end("PK\5\6\0\0\0\0", 8);
    Put16(end, count);
    Put16(end, count);
    Put32(end, quint32(directory.size()));
    Put32(end, quint32(written));
    Put16(end, 0);
    for (const QByteArray &piece : pieces)
        std::fwrite(piece.data(), 1, size_t(piece.size()), file);
    std::fwrite(directory.data(), 1, size_t(directory.size()), file);
    std::fwrite(end.data(), 1, size_t(end.size()), file);
    return true;
}
