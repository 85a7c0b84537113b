// SPDX-License-Identifier: MIT
#include "ZipWriter.h"

#include <QtEndian>

// The fields of the file are described in ZipFile.cpp.

namespace
{

constexpr int LEVEL = 3; // a sheet takes a third of the time of the usual 6, and a fifth more space
constexpr int MEMORY_LEVEL = 9;
constexpr qsizetype HEADER_SIZE = 30;
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
    header = file.size();
    size = 0;
    crc = crc32(0, nullptr, 0);
    isGood = isGood && deflateReset(&stream) == Z_OK;
    file.append(HEADER_SIZE, 0); // End writes it
    file.append(name);
}

void ZipWriter::Pack(QByteArrayView piece, int flush)
{
    size += piece.size();
    isGood = isGood && size <= MOST_BYTES && file.size() <= MOST_BYTES;
    if (!piece.isEmpty()) // without data the function returns the initial value
        crc = crc32_z(crc, reinterpret_cast<const Bytef *>(piece.data()), size_t(piece.size()));
    stream.next_in = reinterpret_cast<const Bytef *>(piece.data());
    stream.avail_in = uInt(piece.size());
    Bytef packed[PIECE];
    for (bool isMore = isGood; isMore;) {
        stream.next_out = packed;
        stream.avail_out = PIECE;
        isMore = deflate(&stream, flush) == Z_OK && stream.avail_out == 0;
        file.append(reinterpret_cast<const char *>(packed), PIECE - qsizetype(stream.avail_out));
    }
}

void ZipWriter::End()
{
    const qsizetype start = header + HEADER_SIZE + name.size();
    Pack({}, Z_FINISH);
    QByteArray common; // what the header and the entry of the directory share
    Put16(common, VERSION);
    Put16(common, 0);
    Put16(common, DEFLATED);
    Put32(common, DATE);
    Put32(common, quint32(crc));
    Put32(common, quint32(file.size() - start));
    Put32(common, quint32(size));
    Put16(common, quint16(name.size()));
    Put16(common, 0);
    file.replace(header, HEADER_SIZE, "PK\3\4" + common);
    directory += QByteArray("PK\1\2\0\0", 6) + common + QByteArray(10, 0);
    Put32(directory, quint32(header));
    directory += name;
    ++count;
}

std::optional<QByteArray> ZipWriter::Finish()
{
    const qsizetype start = file.size();
    if (!isGood || start + directory.size() > MOST_BYTES)
        return std::nullopt;
    file += directory + QByteArray("PK\5\6\0\0\0\0", 8);
    Put16(file, count);
    Put16(file, count);
    Put32(file, quint32(directory.size()));
    Put32(file, quint32(start));
    Put16(file, 0);
    return std::move(file);
}
