#pragma once

#include "morvanite_device.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

/// Bytes in a heap block of just their size, so that AddressSanitizer sees a read outside.
class ExactBytes
{
public:
    explicit ExactBytes(const std::vector<std::uint8_t> &bytes)
        : m_bytes(new std::uint8_t[bytes.size()]), m_size(static_cast<std::uint32_t>(bytes.size()))
    {
        if (!bytes.empty())
            std::memcpy(m_bytes.get(), bytes.data(), bytes.size());
    }

    [[nodiscard]] const std::uint8_t *Data() const { return m_bytes.get(); }
    [[nodiscard]] std::uint32_t Size() const { return m_size; }

private:
    std::unique_ptr<std::uint8_t[]> m_bytes;
    std::uint32_t m_size;
};

/// What ReadEverything came by.
struct Reading
{
    std::uint32_t items = 0;   ///< items whose bytes were there
    std::uint32_t strings = 0; ///< strings that were there
    std::uint32_t damaged = 0; ///< entries, items, languages and strings that were damaged
    std::uint32_t sum = 0;     ///< over all bytes, so that no read is left out
    bool indexAgrees = true;   ///< look-ups with an index gave what those without gave
};

namespace reading
{

inline void Touch(Reading &reading, const std::uint8_t *data, std::uint32_t size)
{
    for (std::uint32_t i = 0; i < size; ++i)
        reading.sum += data[i];
}

/// Strings of one language; `budget` bounds the bytes of text, which a damaged table can give once for each string.
inline void ReadLanguage(Reading &reading, const morvanite_item &item, std::uint32_t &budget)
{
    morvanite_language walked;
    if (morvanite_open_language(&item, &walked) != MORVANITE_OK) {
        ++reading.damaged;
        return;
    }
    morvanite_language indexed = walked;
    std::vector<std::uint32_t> order(indexed.strings.count);
    morvanite_make_index(&indexed.strings, order.data(), indexed.strings.count);
    for (std::uint32_t i = 0; i < walked.strings.count && budget > 0; ++i) {
        morvanite_string string;
        const morvanite_result result = morvanite_string_at(&walked, i, &string);
        budget -= budget < item.size ? budget : item.size;
        if (result != MORVANITE_OK) {
            ++reading.damaged;
        } else {
            ++reading.strings;
            Touch(reading, string.units, 2 * string.length + 2);
            std::vector<char> text(morvanite_string_utf8(&string, nullptr, 0) + 1);
            morvanite_string_utf8(&string, text.data(), static_cast<std::uint32_t>(text.size()));
        }
        morvanite_string left{};
        morvanite_string right{};
        reading.indexAgrees =
            reading.indexAgrees &&
            morvanite_find_string(&walked, string.id, &left) == morvanite_find_string(&indexed, string.id, &right) &&
            left.units == right.units && left.length == right.length;
    }
}

} // namespace reading

/// Opens and reads all that the reader can reach, by walking and by look-ups with and without an index.
inline morvanite_result ReadEverything(const ExactBytes &bytes, std::uint32_t base, Reading &reading)
{
    morvanite_payload walked;
    const morvanite_result opened = morvanite_open(&walked, bytes.Data(), bytes.Size(), base);
    if (opened != MORVANITE_OK)
        return opened;

    std::uint32_t cursor = 0;
    morvanite_entry entry;
    for (;;) {
        const morvanite_result result = morvanite_next_entry(&walked, &cursor, &entry);
        if (result == MORVANITE_NOT_FOUND)
            break;
        reading.damaged += result == MORVANITE_DAMAGED;
        reading::Touch(reading, entry.data, entry.size);
    }

    morvanite_payload indexed = walked;
    std::vector<std::uint32_t> order(indexed.items.count);
    morvanite_make_index(&indexed.items, order.data(), indexed.items.count);
    std::uint32_t budget = 1U << 20;
    for (std::uint32_t i = 0; i < walked.items.count; ++i) {
        morvanite_item item;
        if (morvanite_item_at(&walked, i, &item) != MORVANITE_OK) {
            ++reading.damaged;
        } else if (budget > 0) {
            ++reading.items;
            budget -= budget < item.size ? budget : item.size;
            reading::Touch(reading, item.data, item.size);
            if (MORVANITE_IS_LANGUAGE(item.key))
                reading::ReadLanguage(reading, item, budget);
        }
        morvanite_item left{};
        morvanite_item right{};
        reading.indexAgrees =
            reading.indexAgrees &&
            morvanite_find_item(&walked, item.key, &left) == morvanite_find_item(&indexed, item.key, &right) &&
            left.data == right.data && left.size == right.size;
    }
    return MORVANITE_OK;
}
