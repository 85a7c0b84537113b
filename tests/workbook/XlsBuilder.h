// SPDX-License-Identifier: MIT
#pragma once

#include "BiffWriter.h"
#include "CompoundFile.h"
#include "MemoryFile.h"

#include <gtest/gtest.h>

#include <vector>

// Builders of workbooks record by record, and of containers sector by sector.

inline QByteArray Rec(quint16 type, const QByteArray &data = {})
{
    QByteArray bytes;
    BiffWriter writer([&bytes](QByteArrayView piece) { bytes += piece; });
    writer.Begin(type).Add(data);
    writer.Flush();
    return bytes;
}

/// Returns the bytes of numbers, each as wide as its type.
template <typename... T> QByteArray Pack(T... values)
{
    QByteArray bytes;
    const auto append = [&bytes](auto value) {
        value = qToLittleEndian(value);
        bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
    };
    (append(values), ...);
    return bytes;
}

/// Returns the first fields of a cell, and the values after them.
template <typename... T> QByteArray CellData(int row, int column, T... values)
{
    return Pack(quint16(row), quint16(column), quint16(15), values...);
}

inline QByteArray InContainer(const QByteArray &stream, const char *name = "Workbook")
{
    return InMemory([&](std::FILE *file) {
        CompoundWriter container(name, file);
        container.Write(stream);
        EXPECT_EQ(container.Close().reason, QString());
    });
}

struct XlsBuilder
{
    struct Part
    {
        quint8 kind; ///< 0 is a worksheet
        QByteArray records;
        quint16 begins = BOF_WORKSHEET;
        quint8 hidden = 0;
    };

    quint16 version = BIFF8;
    QByteArray globals;
    std::vector<Part> sheets;

    [[nodiscard]] QByteArray Stream() const
    {
        QByteArray head = Begin(BOF_GLOBALS) + globals;
        qsizetype at = head.size() + qsizetype(sheets.size()) * 13 + 4;
        QByteArray bodies;
        for (const Part &sheet : sheets) {
            head += Rec(BIFF_BOUNDSHEET, Pack(quint32(at + bodies.size()), sheet.hidden, sheet.kind, quint16(1), 'S'));
            bodies += Begin(sheet.begins) + sheet.records + Rec(BIFF_EOF);
        }
        return head + Rec(BIFF_EOF) + bodies;
    }
    [[nodiscard]] QByteArray Build(const char *name = "Workbook") const { return InContainer(Stream(), name); }
    [[nodiscard]] QByteArray Begin(quint16 kind) const { return Rec(BIFF_BOF, Pack(version, kind, quint64(0))); }
};

/// Returns a container with sectors of 4096 bytes: the table, the stream "Workbook" in consecutive sectors, the
/// directory. Each of the `depth` directory entries before that of the stream leads to the next one.
inline QByteArray LargeSectors(QByteArray stream, quint32 depth)
{
    constexpr qsizetype SECTOR = 4096;
    constexpr quint32 NONE = 0xFFFFFFFF;
    const auto entry = [](QStringView name, quint8 kind, quint32 before, quint32 child, quint32 start, qsizetype size) {
        QByteArray bytes(reinterpret_cast<const char *>(name.utf16()), name.size() * 2);
        return bytes.leftJustified(64, 0) + Pack(quint16(2 * name.size() + 2), kind, quint8(1), before, NONE, child) +
               QByteArray(36, 0) + Pack(start, quint64(size));
    };
    QByteArray directory = entry(u"Root Entry", 5, NONE, 1, NONE - 1, 0);
    for (quint32 i = 1; i <= depth; ++i)
        directory += entry(u"Other", 2, i + 1, NONE, NONE - 1, 0);
    directory += entry(u"WORKBOOK", 2, NONE, NONE, 0, std::max(stream.size(), SECTOR));
    const auto pad = [](QByteArray &bytes) { bytes.resize((bytes.size() + SECTOR - 1) / SECTOR * SECTOR, 0); };
    pad(stream);
    pad(directory);
    const quint32 streamSectors = quint32(stream.size() / SECTOR);
    const quint32 chained = streamSectors + quint32(directory.size() / SECTOR);
    QByteArray table;
    for (quint32 i = 1; i <= chained; ++i)
        table += Pack(i == streamSectors || i == chained ? NONE - 1 : i);
    pad(table);
    QByteArray header =
        QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1").leftJustified(24, 0) +
        Pack(quint16(0x3E), quint16(4), quint16(0xFFFE), quint16(12), quint16(6), quint16(0), quint64(0));
    header += Pack(quint32(table.size() / SECTOR), streamSectors, 0, 4096, NONE - 1, 0, NONE - 1, 0);
    for (quint32 i = 0; i < 109; ++i)
        header += Pack(i < table.size() / SECTOR ? chained + i : NONE);
    pad(header);
    return header + stream + directory + table;
}
