// SPDX-License-Identifier: MIT
#pragma once

#include "ScreenSize.h"
#include "Text.h"

/// Reads two numbers like the scan format "%d%*[SEPARATORS]%d": blanks before either number, signs, at least one of
/// `separators` immediately after the first, any text after the second. Returns nullopt if there aren't two numbers. A
/// number beyond 32 bits gives the nearest that fits.
[[nodiscard]] std::optional<ScreenSize> ScanScreenSize(QStringView text, QStringView separators);
