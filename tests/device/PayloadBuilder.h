// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

/// Writes payloads for tests of the readers, by the description in docs/payload-format.md and without packer code.
///
///     PayloadBuilder().Entry("AppLogo.img", icon).Language(0, {{2, u"Hi"}}).Item(1, bytes).Base(0).Build()
class PayloadBuilder
{
public:
    using Bytes = std::string;
    using Strings = std::vector<std::pair<std::uint32_t, std::u16string>>;

    static constexpr std::uint32_t EndKey = 0xFFFFFFFF;

    PayloadBuilder &Entry(const std::string &name, const Bytes &data)
    {
        m_entries.emplace_back(name, data);
        return *this;
    }

    /// Adds an item without changes, padded with zero bytes to a multiple of 4.
    PayloadBuilder &Item(std::uint32_t key, const Bytes &data)
    {
        m_items.emplace_back(key, Padded(data));
        return *this;
    }

    PayloadBuilder &Language(std::uint16_t number, const Strings &strings)
    {
        const std::size_t head = 4 + 8 * (strings.size() + 1);
        Bytes pairs = U32({strings.size() + 1});
        Bytes texts;
        for (const auto &[id, text] : strings) {
            pairs += U32({id, head + texts.size()});
            for (const char16_t unit : text + u'\0')
                texts += U32({unit}).substr(0, 2);
            texts = Padded(texts);
        }
        return Item(0xFFFF0000U | number, pairs + U32({EndKey, head + texts.size()}) + texts);
    }

    PayloadBuilder &Base(std::uint32_t base)
    {
        m_base = base;
        return *this;
    }

    /// Removes the gaps between entries, as after the magic of a DLL-side file.
    PayloadBuilder &Unpadded()
    {
        m_padded = false;
        return *this;
    }

    [[nodiscard]] Bytes Build() const
    {
        std::size_t at = sizeof "zep-2.0" + 8 + 9;
        for (const auto &[name, data] : m_entries)
            at += name.size() + 9;
        at = (at + 3) / 4 * 4;
        Bytes directory;
        Bytes body;
        for (const auto &[name, data] : m_entries) {
            directory += name + '\0' + U32({m_base + at + body.size(), data.size()});
            body += m_padded ? Padded(data) : data;
        }
        const std::size_t tableSize = 8 * (m_items.size() + 1);
        const std::size_t tableAt = m_base + at + body.size();
        directory += std::string("zep-2.0") + '\0' + U32({tableAt, tableSize}) + '\0' + U32({tableAt, 0});
        Bytes items;
        for (const auto &[key, data] : m_items) {
            body += U32({key, tableAt + tableSize + items.size()});
            items += data;
        }
        return Padded(directory) + body + U32({EndKey, tableAt + tableSize + items.size()}) + items;
    }

    /// Returns numbers of 4 bytes each.
    static Bytes U32(std::initializer_list<std::size_t> numbers)
    {
        Bytes bytes;
        for (const std::size_t number : numbers)
            for (unsigned shift = 0; shift < 32; shift += 8)
                bytes += static_cast<char>(number >> shift & 0xFF);
        return bytes;
    }

    /// Returns another file with the payload and its magic appended; the payload's base must be the file's size plus 8.
    static Bytes AppendedTo(const Bytes &file, const Bytes &payload)
    {
        return file + ".zp_res" + '\0' + payload + U32({file.size()});
    }

private:
    static Bytes Padded(Bytes bytes)
    {
        bytes.resize((bytes.size() + 3) / 4 * 4);
        return bytes;
    }

    std::vector<std::pair<std::string, Bytes>> m_entries;
    std::vector<std::pair<std::uint32_t, Bytes>> m_items;
    std::uint32_t m_base = 0;
    bool m_padded = true;
};
