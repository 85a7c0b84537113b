// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

/// Converts a date and time such as "2024-02-29T13:45:00" to the number that a sheet has for it: the days since the end
/// of 1899, or since the beginning of 1904, and the fraction of the day. The text may have only a date or only a time
/// of day. Returns nullopt when it has neither.
[[nodiscard]] std::optional<double> DateNumber(std::string_view text, bool from1904);
