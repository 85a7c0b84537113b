// SPDX-License-Identifier: MIT
#pragma once

#include "PayloadBuilder.h"

#include <algorithm>

/// Writes small 32-bit little-endian ELF files. A test can make each part invalid, since a reader must not trust any.
/// In the file: header, program headers, the sections' bytes, the name table (always the last section), section table.
class ElfBuilder
{
public:
    using Bytes = PayloadBuilder::Bytes;

    static constexpr std::uint32_t NoBits = 8;

    /// Adds program headers that cover the whole file. `step` is the distance from one section header to the next.
    explicit ElfBuilder(std::size_t segments = 0, std::size_t step = HeaderSize)
        : m_segments(segments), m_step(step), m_file(52 + 32 * segments, '\0')
    {
    }

    /// `missing` is the number of bytes that the section claims beyond its data.
    ElfBuilder &Section(const std::string &name, const Bytes &data, std::uint32_t type = 1, std::size_t missing = 0)
    {
        const std::size_t size = data.size() + missing;
        m_headers.push_back(PayloadBuilder::U32({m_names.size(), type, 0, 0, m_file.size(), size, 0, 0, 1, 0}));
        m_names += name + '\0';
        m_file += data;
        return *this;
    }

    [[nodiscard]] Bytes Build(std::uint32_t nameTableType = 3) const
    {
        ElfBuilder whole = *this;
        const Bytes names = m_names + ".shstrtab" + '\0';
        whole.Section(".shstrtab", names, nameTableType);
        Bytes &file = whole.m_file;
        const std::size_t table = file.size();
        const std::size_t count = whole.m_headers.size();
        Bytes head("\x7F"
                   "ELF\1\1\1\0\0\0\0\0\0\0\0\0",
                   16);
        head += PayloadBuilder::U32({2 | 40 << 16, 1, 0x8000, m_segments > 0 ? 52U : 0U, table, 0x5000400,
                                     52 | 32 << 16, m_segments | m_step << 16, count | (count - 1) << 16});
        for (std::size_t i = 0; i < m_segments; ++i)
            head += PayloadBuilder::U32({1, 0, 0x8000, 0x8000, table, table, 5, 4});
        file.replace(0, head.size(), head);
        for (std::size_t i = 0; i < count; ++i) {
            file.resize(std::max(file.size(), table + m_step * i + HeaderSize));
            file.replace(table + m_step * i, HeaderSize, whole.m_headers[i]);
        }
        return file;
    }

private:
    static constexpr std::size_t HeaderSize = 40;

    std::size_t m_segments;
    std::size_t m_step;
    Bytes m_file;
    Bytes m_names = Bytes(1, '\0');
    std::vector<Bytes> m_headers{Bytes(HeaderSize, '\0')};
};
