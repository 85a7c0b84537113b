// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

/// The format of the application file of a pack.
enum class TargetKind
{
    Axf, ///< an ELF file
    Dll,
};

/// Reads "axf" or "dll", without regard to case. Returns nullopt for any other text.
[[nodiscard]] std::optional<TargetKind> ParseTargetKind(std::string_view text);
