// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

// Numbers and UTF-16 text as little-endian bytes.

/// Writes an integer to its `sizeof` bytes.
template <typename Integer> void PutLittleEndian(Integer number, char *bytes)
{
    const auto bits = std::make_unsigned_t<Integer>(number);
    for (size_t i = 0; i < sizeof bits; ++i)
        bytes[i] = char(bits >> (8 * i));
}

/// Reads an integer from its `sizeof` bytes.
template <typename Integer> [[nodiscard]] Integer GetLittleEndian(const char *bytes)
{
    std::make_unsigned_t<Integer> bits = 0;
    for (size_t i = 0; i < sizeof bits; ++i)
        bits = std::make_unsigned_t<Integer>(bits | std::make_unsigned_t<Integer>(uint8_t(bytes[i])) << (8 * i));
    return Integer(bits);
}

/// Returns the UTF-16 text that bytes have. The half of an odd number of bytes is left out.
[[nodiscard]] inline std::u16string Utf16OfBytes(std::string_view bytes)
{
    std::u16string text(bytes.size() / 2, u'\0');
    for (size_t i = 0; i < text.size(); ++i)
        text[i] = char16_t(GetLittleEndian<uint16_t>(bytes.data() + 2 * i));
    return text;
}
