#pragma once

#include "PayloadBuilder.h"

/// Writes a small 32-bit little-endian ELF file whose sections are named as given; the names come first, as section 1.
class ElfBuilder
{
public:
    using Bytes = PayloadBuilder::Bytes;

    ElfBuilder &Section(std::string name, Bytes data, std::uint32_t type = 1)
    {
        m_sections.push_back({std::move(name), std::move(data), type});
        return *this;
    }

    [[nodiscard]] Bytes Build() const
    {
        std::string names(1, '\0');
        Bytes headers(SectionHeaderSize);
        AppendName(names, ".shstrtab");
        std::vector<std::size_t> places;
        for (const SectionData &section : m_sections)
            places.push_back(AppendName(names, section.name));
        AppendHeader(headers, 1, 3, FileHeaderSize, names.size());
        Bytes body(names.begin(), names.end());
        for (std::size_t i = 0; i < m_sections.size(); ++i) {
            const SectionData &section = m_sections[i];
            AppendHeader(headers, places[i], section.type, FileHeaderSize + body.size(), section.data.size());
            body.insert(body.end(), section.data.begin(), section.data.end());
        }

        Bytes file{0x7F, 'E', 'L', 'F', 1, 1, 1};
        file.resize(32);
        PayloadBuilder::AppendU32(file, FileHeaderSize + body.size());
        file.resize(46);
        for (const std::size_t number : {SectionHeaderSize, m_sections.size() + 2, std::size_t{1}}) {
            file.push_back(static_cast<std::uint8_t>(number & 0xFF));
            file.push_back(static_cast<std::uint8_t>(number >> 8));
        }
        file.insert(file.end(), body.begin(), body.end());
        file.insert(file.end(), headers.begin(), headers.end());
        return file;
    }

private:
    static constexpr std::size_t FileHeaderSize = 52;
    static constexpr std::size_t SectionHeaderSize = 40;

    struct SectionData
    {
        std::string name;
        Bytes data;
        std::uint32_t type;
    };

    static std::size_t AppendName(std::string &names, const std::string &name)
    {
        const std::size_t place = names.size();
        names.append(name.c_str(), name.size() + 1);
        return place;
    }

    static void AppendHeader(Bytes &headers, std::size_t name, std::size_t type, std::size_t offset, std::size_t size)
    {
        const std::size_t end = headers.size() + SectionHeaderSize;
        for (const std::size_t number : {name, type, std::size_t{0}, std::size_t{0}, offset, size})
            PayloadBuilder::AppendU32(headers, number);
        headers.resize(end);
    }

    std::vector<SectionData> m_sections;
};
