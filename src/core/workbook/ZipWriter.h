// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

#define ZLIB_CONST // zlib doesn't write to its input
#include <zlib.h>

/// Makes a ZIP file in memory, part after part. The same parts give the same bytes: each has the date 1980-01-01.
///
///     ZipWriter zip;
///     zip.Begin("xl/workbook.xml");
///     zip.Write(piece);
///     zip.End();
///     const std::optional<QByteArray> file = zip.Finish();
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
    /// Returns the file; nullopt if it or one of its parts has 4 GiB or more, or memory was lacking.
    [[nodiscard]] std::optional<QByteArray> Finish();

private:
    void Pack(QByteArrayView piece, int flush);

    z_stream stream{};
    bool isGood;
    QByteArray file;
    QByteArray directory;
    quint16 count = 0;
    // The present part:
    QByteArray name;
    qsizetype header = 0; // where its header begins in the file
    qsizetype size = 0;   // unpacked
    uLong crc = 0;
};
