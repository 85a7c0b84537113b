// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// Text for programs that start without Qt.

/// Converts UTF-8 to UTF-16. A byte that isn't part of a character becomes U+FFFD.
[[nodiscard]] std::u16string Utf16Of(std::string_view utf8);

/// Converts UTF-16 to UTF-8. Half of a surrogate pair without the other becomes "?".
[[nodiscard]] std::string Utf8Of(std::u16string_view text);

[[nodiscard]] constexpr bool IsHighSurrogate(char16_t unit)
{
    return (unit & 0xFC00) == 0xD800;
}

[[nodiscard]] constexpr bool IsLowSurrogate(char16_t unit)
{
    return (unit & 0xFC00) == 0xDC00;
}
