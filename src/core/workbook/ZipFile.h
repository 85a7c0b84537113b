// SPDX-License-Identifier: MIT
#pragma once

#include "Workbook.h"

#include <QByteArray>
#include <QHash>

#include <atomic>
#include <functional>

/// Reads the parts of a ZIP file in memory.
///
/// It doesn't trust the file. These are failures: a directory that overlaps anything, two parts with the same name or
/// the same bytes, and a part that unpacks to far too much, doesn't have the size in the directory or has another
/// checksum. It supports the 64-bit sizes of parts, which some writers always use, but not files of more than 65,535
/// parts. Names are compared without regard to case. It doesn't own the file, which must outlive it.
///
///     ZipFile zip;
///     zip.Open(file);
///     zip.Read("xl/workbook.xml", [](QByteArrayView piece) { return ...; });
class ZipFile
{
public:
    /// Finds the parts. NoWorkbook when the bytes aren't those of a ZIP file.
    [[nodiscard]] WorkbookResult Open(QByteArrayView bytes);

    /// Makes `Read` fail with Stopped at the next piece once the flag is true. It may be null, and must outlive this
    /// object.
    void StopWhen(const std::atomic<bool> *stopped) { stop = stopped; }

    [[nodiscard]] bool Has(const QByteArray &name) const { return parts.contains(name.toLower()); }

    /// The names of all parts, in the order of the directory.
    [[nodiscard]] const QList<QByteArray> &Names() const { return names; }

    /// Calls `take` with a part, piece by piece, until it returns false, which isn't a failure.
    [[nodiscard]] WorkbookResult Read(const QByteArray &name, const std::function<bool(QByteArrayView)> &take) const;

private:
    struct Part
    {
        QByteArrayView data; // as it is in the file
        quint64 size = 0;    // unpacked
        quint32 crc = 0;
        quint16 method = 0;
        bool isEncrypted = false;
    };

    [[nodiscard]] QString ReadDirectory(quint64 end, quint64 at, quint64 size, quint16 count);
    [[nodiscard]] QString ReadEntry(quint64 &at);
    [[nodiscard]] QString FindData(quint64 header, quint64 packedSize, Part &part);
    [[nodiscard]] QString CheckOverlaps();

    QByteArrayView file;
    const std::atomic<bool> *stop = nullptr;
    QHash<QByteArray, Part> parts; // by name in lower case
    QList<QByteArray> names;
    std::vector<std::pair<quint64, quint64>> taken; // start and end of each part, including its header
};
