// SPDX-License-Identifier: MIT
#pragma once

#include "ByteReader.h"

#include <QString>

/// The section table of a 32-bit little-endian ELF file, which isn't trusted. The file's bytes must outlive it.
class ElfSections
{
public:
    struct Section
    {
        QByteArrayView name; ///< at most 255 bytes of it
        quint32 type = 0;
        quint32 offset = 0;
        quint32 size = 0;
        /// False for a section without bytes in the file.
        [[nodiscard]] bool IsInFile() const { return type != 8; } // SHT_NOBITS
    };

    explicit ElfSections(QByteArrayView bytes) : file(bytes) {}

    /// Finds the table and the names. Must be called first. Returns an empty text, or what is wrong.
    [[nodiscard]] QString Open();
    [[nodiscard]] quint64 Count() const { return count; }
    /// Returns the section with that index; nothing if its header is outside the file. Its bytes may be outside too.
    [[nodiscard]] std::optional<Section> At(quint64 index) const;

    [[nodiscard]] quint64 TableOffset() const { return table; }
    [[nodiscard]] quint64 TableSize() const { return step * count; }

private:
    static constexpr quint64 SECTION_HEADER = 40; // bytes

    ByteReader file;
    ByteReader names{QByteArrayView()};
    quint64 table = 0;
    quint64 step = 0;
    quint64 count = 0;
};
