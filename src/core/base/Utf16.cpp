// SPDX-License-Identifier: MIT
#include "Utf16.h"

#include "TypedText.h"

#include <algorithm>

namespace
{

constexpr char32_t FIRST_OF_PAIRS = 0x10000; // smaller characters are one unit of UTF-16

/// Returns the number of a character, which is so many bytes of UTF-8.
char32_t CharacterOf(std::string_view bytes)
{
    constexpr unsigned char FIRST_BITS[] = {0, 0x7F, 0x1F, 0x0F, 0x07}; // by the number of bytes
    char32_t character = static_cast<unsigned char>(bytes[0]) & FIRST_BITS[bytes.size()];
    for (const char byte : bytes.substr(1))
        character = character << 6 | (static_cast<unsigned char>(byte) & 0x3F);
    return character;
}

void AppendUtf8(std::string &to, char32_t character)
{
    const auto rest = [character](int shift) { return char(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80)
        to += char(character);
    else if (character < 0x800)
        to += {char(0xC0 | character >> 6), rest(0)};
    else if (character < FIRST_OF_PAIRS)
        to += {char(0xE0 | character >> 12), rest(6), rest(0)};
    else
        to += {char(0xF0 | character >> 18), rest(12), rest(6), rest(0)};
}

} // namespace

std::u16string Utf16Of(std::string_view utf8)
{
    std::u16string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const size_t size = Utf8CharacterSize(utf8);
        const char32_t character = size > 0 ? CharacterOf(utf8.substr(0, size)) : 0xFFFD;
        if (character < FIRST_OF_PAIRS)
            text += char16_t(character);
        else
            text += {char16_t(0xD7C0 + (character >> 10)), char16_t(0xDC00 | (character & 0x3FF))};
        utf8.remove_prefix(std::max<size_t>(size, 1));
    }
    return text;
}

std::string Utf8Of(std::u16string_view text)
{
    std::string utf8;
    utf8.reserve(text.size() + text.size() / 2);
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            AppendUtf8(utf8, FIRST_OF_PAIRS + ((unit & 0x3FFu) << 10) + (text[++i] & 0x3FFu));
        else
            AppendUtf8(utf8, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? U'?' : char32_t(unit));
    }
    return utf8;
}
