#pragma once

#include <optional>
#include <string_view>

/// The number by which a sheet counts a date and time such as "2024-02-29T13:45:00": the days since the end of 1899, or
/// since the beginning of 1904, and the part of the day. A date, or a time of day, may be there alone. Nothing when the
/// text is neither.
[[nodiscard]] std::optional<double> DateNumber(std::string_view text, bool from1904);
