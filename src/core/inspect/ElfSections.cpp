// SPDX-License-Identifier: MIT
#include "ElfSections.h"

#include <algorithm>

QString ElfSections::Open()
{
    const auto namesIndex = file.U16(50);
    if (file.Slice(4, 2) != QByteArrayView("\1\1"))
        return QStringLiteral("an ELF file, but not a 32-bit little-endian one");
    table = file.U32(32).value_or(0);
    step = file.U16(46).value_or(0);
    count = file.U16(48).value_or(0);
    const auto header =
        namesIndex && *namesIndex < count ? file.Slice(table + step * *namesIndex, SECTION_HEADER) : std::nullopt;
    if (!header)
        return QStringLiteral("an ELF file whose section table is outside the file");
    const ByteReader namesHeader(*header);
    const auto bytes = file.Slice(*namesHeader.U32(16), *namesHeader.U32(20));
    if (!bytes)
        return QStringLiteral("an ELF file whose section names are outside the file");
    names = ByteReader(*bytes);
    return {};
}

std::optional<ElfSections::Section> ElfSections::At(quint64 index) const
{
    constexpr quint64 LONGEST_NAME = 255; // a damaged file may have thousands of sections with very long names
    const auto bytes = file.Slice(table + step * index, SECTION_HEADER);
    if (!bytes)
        return std::nullopt;
    const ByteReader header(*bytes);
    Section section{{}, *header.U32(4), *header.U32(16), *header.U32(20)};
    const quint64 nameAt = *header.U32(0);
    if (nameAt < names.Size()) {
        const QByteArrayView rest = *names.Slice(nameAt, std::min(LONGEST_NAME + 1, names.Size() - nameAt));
        section.name =
            ByteReader(rest).ZeroTerminated(0).value_or(rest.first(std::min(rest.size(), qsizetype(LONGEST_NAME))));
    }
    return section;
}
