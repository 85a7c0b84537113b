// SPDX-License-Identifier: MIT
#pragma once

#include "CResoTable.h"
#include "ScreenSize.h"

/// Explains that the list of screen sizes doesn't have a size, and names the nearest that it has. Empty when it has the
/// size.
[[nodiscard]] QString WhyNotListed(const CResoTable &sizes, const ScreenSize &size);
