#pragma once

#include <QString>

#include <optional>

/// What a user types for the zoom of a preview.
namespace ZoomInput
{

inline constexpr int LOWEST = 10;
inline constexpr int HIGHEST = 1000; // percent

/// What is said of any other input.
[[nodiscard]] QString Message();

/// The number of percent; nothing for a text that isn't a whole number from LOWEST to HIGHEST. Blanks around it don't
/// count.
[[nodiscard]] std::optional<int> Check(const QString &text);

} // namespace ZoomInput
