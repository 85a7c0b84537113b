// SPDX-License-Identifier: MIT
#pragma once

#include "CommandRecord.h"
#include "Packer.h"
#include "ScreenSize.h"

#include <optional>

class CResoTable;
class Environment;

/// Parses two numbers like the scan format "%d%*[Xx*]%d": blanks before either number, signs, at least one of X, x and
/// * immediately after the first, any text after the second. A number beyond 32 bits gives the nearest that fits.
[[nodiscard]] std::optional<ScreenSize> ParseResolution(QStringView text);

/// "axf" or "dll", without regard to case.
[[nodiscard]] std::optional<PackMode> PackModeOf(QStringView targetKind);

/// The parameters of the pack that a record requests; nothing if its resolution or target kind isn't recognised. A
/// resolution that isn't in the table has the scope -1.
[[nodiscard]] std::optional<packinfo> PackInfoOf(const PackCommandRecord &record, const Environment &env,
                                                 const CResoTable &resolutions);
