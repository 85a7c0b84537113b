#pragma once

#include "Workbook.h"

#include <QByteArray>
#include <QHash>

#include <functional>

/// The parts of a ZIP file, read where they lie in it.
///
/// Trusts nothing: a directory that overlaps anything, two parts of one name or of the same bytes, a part that grows
/// beyond measure, isn't as long as the directory says or has another checksum are failures. Knows the 64-bit sizes of
/// a part, which some writers always use, but no file of more than 65,535 parts. Names are the same in any case. Owns
/// nothing: the file has to stay.
///
///     ZipFile zip;
///     zip.Open(file);
///     zip.Read("xl/workbook.xml", [](QByteArrayView piece) { return ...; });
class ZipFile
{
public:
    /// Finds the parts. NoWorkbook when the bytes aren't those of a ZIP file.
    [[nodiscard]] WorkbookResult Open(QByteArrayView bytes);

    [[nodiscard]] bool Has(const QByteArray &name) const { return parts.contains(name.toLower()); }

    /// The names of all parts, in lower case and no order.
    [[nodiscard]] QList<QByteArray> Names() const { return parts.keys(); }

    /// Hands out a part piece by piece, until `take` gives false, which isn't a failure.
    [[nodiscard]] WorkbookResult Read(const QByteArray &name, const std::function<bool(QByteArrayView)> &take) const;

private:
    struct Part
    {
        QByteArrayView data; // as it lies in the file
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
    QHash<QByteArray, Part> parts;                  // by name in lower case
    std::vector<std::pair<quint64, quint64>> taken; // where each part begins, with its header, and ends
};
