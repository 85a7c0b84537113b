#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// Writes payloads for tests of the reader, by the drawing of docs/payload-format.md and with no code of the packer.
///
///     PayloadBuilder().Entry("AppLogo.img", icon).Language(0, {{2, u"Hi"}}).Item(1, bytes).Base(0).Bytes()
class PayloadBuilder
{
public:
    using Bytes = std::vector<std::uint8_t>;
    using Strings = std::vector<std::pair<std::uint32_t, std::u16string>>;

    static constexpr std::uint32_t EndKey = 0xFFFFFFFF;

    PayloadBuilder &Entry(std::string name, Bytes data)
    {
        m_entries.emplace_back(std::move(name), std::move(data));
        return *this;
    }

    /// An item as it is, filled up with zero bytes to a multiple of 4.
    PayloadBuilder &Item(std::uint32_t key, Bytes data)
    {
        Pad(data);
        m_items.emplace_back(key, std::move(data));
        return *this;
    }

    PayloadBuilder &Language(std::uint16_t number, const Strings &strings)
    {
        return Item(0xFFFF0000U | number, StringTable(strings));
    }

    PayloadBuilder &Base(std::uint32_t base)
    {
        m_base = base;
        return *this;
    }

    /// As behind the magic of a DLL-side file: entries follow one another without gaps.
    PayloadBuilder &Unpadded()
    {
        m_padded = false;
        return *this;
    }

    [[nodiscard]] Bytes Build() const
    {
        std::size_t directory = std::string("zep-2.0").size() + 9 + 9;
        for (const auto &[name, data] : m_entries)
            directory += name.size() + 9;
        directory += (4 - directory % 4) % 4;

        Bytes head;
        Bytes body;
        for (const auto &[name, data] : m_entries) {
            AppendRecord(head, name, directory + body.size(), data.size());
            body.insert(body.end(), data.begin(), data.end());
            if (m_padded)
                Pad(body);
        }
        const std::size_t table = directory + body.size();
        const std::size_t tableSize = 8 * (m_items.size() + 1);
        AppendRecord(head, "zep-2.0", table, tableSize);
        AppendRecord(head, "", table, 0);
        head.resize(directory);
        head.insert(head.end(), body.begin(), body.end());

        std::size_t at = table + tableSize;
        for (const auto &[key, data] : m_items) {
            AppendU32(head, key);
            AppendU32(head, m_base + at);
            at += data.size();
        }
        AppendU32(head, EndKey);
        AppendU32(head, m_base + at);
        for (const auto &[key, data] : m_items)
            head.insert(head.end(), data.begin(), data.end());
        return head;
    }

    static Bytes StringTable(const Strings &strings)
    {
        Bytes table;
        Bytes texts;
        const std::size_t head = 4 + 8 * (strings.size() + 1);
        AppendU32(table, strings.size() + 1);
        for (const auto &[id, text] : strings) {
            AppendU32(table, id);
            AppendU32(table, head + texts.size());
            for (const char16_t unit : text + u'\0') {
                texts.push_back(static_cast<std::uint8_t>(unit & 0xFF));
                texts.push_back(static_cast<std::uint8_t>(unit >> 8));
            }
            Pad(texts);
        }
        AppendU32(table, EndKey);
        AppendU32(table, head + texts.size());
        table.insert(table.end(), texts.begin(), texts.end());
        return table;
    }

    static void AppendU32(Bytes &bytes, std::size_t number)
    {
        for (unsigned shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>(number >> shift & 0xFF));
    }

    /// A file of another kind with the payload behind its magic; the payload's base must be the file's size plus 8.
    static Bytes AppendedTo(Bytes file, const Bytes &payload)
    {
        const std::size_t size = file.size();
        for (const char c : {'.', 'z', 'p', '_', 'r', 'e', 's', '\0'})
            file.push_back(static_cast<std::uint8_t>(c));
        file.insert(file.end(), payload.begin(), payload.end());
        AppendU32(file, size);
        return file;
    }

private:
    static void Pad(Bytes &bytes) { bytes.resize((bytes.size() + 3) / 4 * 4); }

    void AppendRecord(Bytes &head, const std::string &name, std::size_t at, std::size_t size) const
    {
        head.insert(head.end(), name.begin(), name.end());
        head.push_back(0);
        AppendU32(head, m_base + at);
        AppendU32(head, size);
    }

    std::vector<std::pair<std::string, Bytes>> m_entries;
    std::vector<std::pair<std::uint32_t, Bytes>> m_items;
    std::uint32_t m_base = 0;
    bool m_padded = true;
};
