// SPDX-License-Identifier: MIT
#pragma once

#include "morvanite_device.h"

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

/// A copy of the bytes that ends with its heap block, so that AddressSanitizer detects reads outside of it. Its address
/// is `shift` more than a multiple of 4.
class ExactBytes
{
public:
    explicit ExactBytes(const std::string &bytes, std::size_t shift = 0) : m_bytes(shift), m_shift(shift)
    {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
        m_bytes.shrink_to_fit();
    }
    [[nodiscard]] const std::uint8_t *Data() const { return m_bytes.data() + m_shift; }
    [[nodiscard]] std::uint32_t Size() const { return static_cast<std::uint32_t>(m_bytes.size() - m_shift); }

private:
    std::vector<std::uint8_t> m_bytes;
    std::size_t m_shift;
};

/// Returns a line for each item or string of a table. Throws if a look-up, with or without an index, doesn't find the
/// first match of a search through the table.
template <typename Owner, typename Part>
std::string ReadTable(const Owner &walked, morvanite_table Owner::*table, std::uint32_t Part::*key,
                      const std::uint8_t *Part::*data, std::uint32_t Part::*size,
                      morvanite_result (*at)(const Owner *, std::uint32_t, Part *),
                      morvanite_result (*find)(const Owner *, std::uint32_t, Part *), std::string (*show)(const Part &))
{
    std::string text;
    std::map<std::uint32_t, std::string> first;
    const auto shown = [&](morvanite_result result, const Part &part) {
        if (result == MORVANITE_DAMAGED)
            return std::string(part.*data == nullptr && part.*size == 0 ? "damaged\n" : "damaged, but with bytes\n");
        return result == MORVANITE_OK ? show(part) : "none";
    };
    Owner indexed = walked;
    std::vector<std::uint32_t> order((walked.*table).count);
    morvanite_make_index(&(indexed.*table), order.data(), (walked.*table).count);
    for (std::uint32_t i = 0; i < order.size(); ++i) {
        Part part;
        const std::string line = shown(at(&walked, i, &part), part);
        first.emplace(part.*key, line);
        text += std::to_string(part.*key) + ' ' + line;
        if (text.size() > 1U << 20) // a damaged table can repeat the same bytes many times
            return text;
    }
    for (const auto &[known, line] : first)
        for (const Owner *owner : {&walked, static_cast<const Owner *>(&indexed)})
            for (const std::uint32_t wanted : {known - 1, known, known + 1}) {
                Part part;
                const std::string found = shown(find(owner, wanted, &part), part);
                if (found != (first.contains(wanted) ? first[wanted] : "none"))
                    throw std::logic_error("a look-up of " + std::to_string(wanted) + " found " + found);
            }
    return text;
}

inline std::string ShowString(const morvanite_string &string)
{
    std::vector<char> utf8(morvanite_string_utf8(&string, nullptr, 0) + 1);
    morvanite_string_utf8(&string, utf8.data(), static_cast<std::uint32_t>(utf8.size()));
    return utf8.data() + std::string(1, '\n');
}

/// Reads a text without opening its language. Throws if it isn't that of the open language. If the language can't be
/// opened, or has several texts with this ID, the result may be any of them.
inline void ReadText(const morvanite_payload &payload, std::uint32_t number, std::uint32_t id)
{
    morvanite_string found{};
    const morvanite_result result = morvanite_find_text(&payload, number, id, &found);
    if (result == MORVANITE_OK && found.id != id)
        throw std::logic_error("a look-up of the text " + std::to_string(id) + " found " + std::to_string(found.id));
    if (result == MORVANITE_OK)
        ShowString(found);
    morvanite_language language;
    morvanite_string string{};
    std::uint32_t same = 0;
    if (morvanite_find_language(&payload, number, &language) != MORVANITE_OK)
        return;
    for (std::uint32_t i = 0; morvanite_string_at(&language, i, &string) != MORVANITE_NOT_FOUND; ++i)
        same += string.id == id ? 1 : 0;
    string = {};
    if (same <= 1 && (morvanite_find_string(&language, id, &string) != result || found.units != string.units ||
                      found.length != string.length))
        throw std::logic_error("a look-up found another text " + std::to_string(id) + " than in the open language");
}

inline std::string ShowItem(const morvanite_item &item)
{
    morvanite_language language;
    const morvanite_result result = morvanite_open_language(&item, &language);
    if (result != MORVANITE_OK)
        return result == MORVANITE_DAMAGED ? "damaged language\n"
                                           : std::string(item.data, item.data + item.size) + '\n';
    return "language " + std::to_string(language.number) + "\n" +
           ReadTable(language, &morvanite_language::strings, &morvanite_string::id, &morvanite_string::units,
                     &morvanite_string::length, morvanite_string_at, morvanite_find_string, ShowString);
}

/// Returns all that the reader finds in a payload, as text: its entries and items, and the strings of each language.
inline std::string ReadEverythingAt(const ExactBytes &memory, std::uint32_t base)
{
    morvanite_payload payload;
    morvanite_entry entry;
    std::uint32_t cursor = 0;
    if (morvanite_open(&payload, memory.Data(), memory.Size(), base) != MORVANITE_OK)
        return morvanite_next_entry(&payload, &cursor, &entry) == MORVANITE_NOT_FOUND ? "no payload" : "an entry";
    std::string text;
    for (morvanite_result result; (result = morvanite_next_entry(&payload, &cursor, &entry)) != MORVANITE_NOT_FOUND;) {
        const bool hasBytes = result == MORVANITE_OK || entry.data != nullptr || entry.size != 0;
        text += entry.name + (hasBytes ? ' ' + std::string(entry.data, entry.data + entry.size) : " damaged") + '\n';
    }
    morvanite_item item;
    for (std::uint32_t i = 0; i < 16 && morvanite_item_at(&payload, i, &item) != MORVANITE_NOT_FOUND; ++i)
        if (MORVANITE_IS_LANGUAGE(item.key))
            for (std::uint32_t at = 4; at + 8 <= item.size && at < 4 + 8 * 16; at += 8) {
                const std::uint32_t id = item.data[at] | std::uint32_t{item.data[at + 1]} << 8 |
                                         std::uint32_t{item.data[at + 2]} << 16 |
                                         std::uint32_t{item.data[at + 3]} << 24;
                for (const std::uint32_t wanted : {id, id + 1}) // the second is often absent
                    ReadText(payload, item.key & 0xFFFFU, wanted);
            }
    return text + ReadTable(payload, &morvanite_payload::items, &morvanite_item::key, &morvanite_item::data,
                            &morvanite_item::size, morvanite_item_at, morvanite_find_item, ShowItem);
}

/// Returns all that the reader finds in a payload, as text: its entries and items, and the strings of each language.
/// Throws if that depends on the address of the payload.
inline std::string ReadEverything(const std::string &bytes, std::uint32_t base = 0)
{
    const std::string text = ReadEverythingAt(ExactBytes(bytes), base);
    if (ReadEverythingAt(ExactBytes(bytes, 1), base) != text)
        throw std::logic_error("the reader finds something else at another address");
    return text;
}
