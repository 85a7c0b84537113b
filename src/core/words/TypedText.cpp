// SPDX-License-Identifier: MIT
#include "TypedText.h"

#include <algorithm>
#include <cstdint>

namespace
{

/// The first bytes of the characters with so many bytes, and the second bytes that may follow them. Others would be
/// longer than necessary, halves of UTF-16, or larger than the last character.
constexpr struct
{
    uint8_t first, last;
    size_t size;
    uint8_t low, high;
} FORMS[] = {
    {0x00, 0x7F, 1, 0x00, 0x00}, {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

} // namespace

size_t Utf8CharacterSize(std::string_view bytes)
{
    const auto at = [bytes](size_t index) { return static_cast<uint8_t>(bytes[index]); };
    for (const auto &form : FORMS) {
        if (at(0) < form.first || at(0) > form.last)
            continue;
        if (bytes.size() < form.size || (form.size > 1 && (at(1) < form.low || at(1) > form.high)))
            return 0;
        const bool isWhole = std::all_of(bytes.begin() + 1, bytes.begin() + form.size,
                                         [](char c) { return (static_cast<uint8_t>(c) & 0xC0) == 0x80; });
        return isWhole ? form.size : 0;
    }
    return 0;
}

std::string WhyNotUsable(std::string_view typed)
{
    constexpr char DIGITS[] = "0123456789abcdef";
    std::string shown;
    bool isUsable = true;
    for (std::string_view rest = typed; !rest.empty();) {
        const size_t size = Utf8CharacterSize(rest);
        if (size > 0) {
            shown += rest.substr(0, size);
        } else {
            const auto byte = static_cast<uint8_t>(rest.front());
            shown += std::string("\\x") + DIGITS[byte >> 4] + DIGITS[byte & 0xF];
            isUsable = false;
        }
        rest.remove_prefix(std::max<size_t>(size, 1));
    }
    return isUsable ? std::string()
                    : "the name \"" + shown + "\" is not UTF-8, so it can't be used; rename the file or folder";
}
