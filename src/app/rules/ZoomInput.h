// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// Checks the zoom of a preview that a user types.
namespace ZoomInput
{

inline constexpr int LOWEST = 10;
inline constexpr int HIGHEST = 1000; // percent

/// The message about invalid input.
[[nodiscard]] QString Message();

/// The percentage in a text; nothing if it isn't a whole number from LOWEST to HIGHEST. Blanks around it are ignored.
[[nodiscard]] std::optional<int> Check(const QString &text);

} // namespace ZoomInput
