// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

/// The size of a screen, in pixels.
struct ScreenSize
{
    int width = 0;
    int height = 0;
    [[nodiscard]] bool operator==(const ScreenSize &) const = default;
};

/// Reads a size that a user typed, such as "240x320"; "X" and "*" may separate the numbers too. Returns nullopt for any
/// other text, and for a side of 0. A number beyond 32 bits gives the nearest that fits.
[[nodiscard]] std::optional<ScreenSize> ParseScreenSize(std::string_view text);
