// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdio>
#include <vector>

#define ZLIB_CONST // zlib doesn't write to its input
#include <zlib.h>

/// Makes a ZIP file in memory, part after part. The same parts give the same bytes: each has the date 1980-01-01.
///
///     ZipWriter zip;
///     zip.Begin("xl/workbook.xml");
///     zip.Write(piece);
///     zip.End();
///     if (!zip.Finish(file)) ...
class ZipWriter
{
public:
    ZipWriter();
    ~ZipWriter() { deflateEnd(&stream); }
    ZipWriter(const ZipWriter &) = delete;
    ZipWriter &operator=(const ZipWriter &) = delete;

    void Begin(const QByteArray &partName);
    /// Adds a piece of at most 1 GiB to the part.
    void Write(QByteArrayView piece) { Pack(piece, Z_NO_FLUSH); }
    void End();
    /// Writes the file. False, and nothing is written, if it or one of its parts has 4 GiB or more, or memory was
    /// lacking. The caller must check whether the writes succeeded.
    [[nodiscard]] bool Finish(std::FILE *file);

private:
    void Pack(QByteArrayView piece, int flush);

    z_stream stream{};
    bool isGood;
    std::vector<QByteArray> pieces; // of the file; in one block, they would be moved each time it grows
    qsizetype written = 0;          // their size, without those of the present part
    QByteArray directory;
    quint16 count = 0;
    // The present part:
    QByteArray name;
    size_t header = 0;  // the piece that gets its header
    qsizetype size = 0; // unpacked
    uLong crc = 0;
};
