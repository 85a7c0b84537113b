// SPDX-License-Identifier: MIT
#include "ScreenSize.h"

#include <charconv>
#include <limits>

namespace
{

/// Returns the number that a text of digits has; 0 for any other text.
int NumberOf(std::string_view digits)
{
    if (digits.empty() || digits.find_first_not_of("0123456789") != digits.npos)
        return 0;
    int number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc() ? number : std::numeric_limits<int>::max();
}

} // namespace

std::optional<ScreenSize> ParseScreenSize(std::string_view text)
{
    const size_t by = text.find_first_of("xX*");
    if (by == text.npos)
        return std::nullopt;
    const ScreenSize size{NumberOf(text.substr(0, by)), NumberOf(text.substr(by + 1))};
    if (size.width == 0 || size.height == 0)
        return std::nullopt;
    return size;
}
