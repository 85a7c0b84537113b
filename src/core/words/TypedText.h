// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Returns the size in bytes of the UTF-8 character that `bytes` begin with; 0 when they begin with none. `bytes` must
/// not be empty.
[[nodiscard]] size_t Utf8CharacterSize(std::string_view bytes);

/// Explains why this program can't use an argument of its command line; empty when it can. Texts and paths are UTF-8
/// here, and a name that isn't UTF-8 could become the name of another file. Shows bytes that aren't UTF-8 as "\xNN".
[[nodiscard]] std::string WhyNotUsable(std::string_view typed);
